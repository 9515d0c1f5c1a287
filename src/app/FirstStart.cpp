#include "app/FirstStart.h"

#include <optional>

#include "catalogue/CopyFormat.h"
#include "lang/TextNumbers.h"
#include "settings/FileProfile.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr const char* kParagraph = "\r\n\r\n";

Answer AskForOlder(const Folders& folders, const Messages& toUser) {
  return toUser.prompts.AskThree(
      Icon::Question,
      toUser.Text(text::kTakeOverAsk, {Windows1252FromUtf8(folders.data)}) + kParagraph +
          toUser.Text(text::kTakeOverChoice),
      {}, {toUser.Text(text::kYes), toUser.Text(text::kNo), toUser.Text(text::kCancelTransfer)});
}

// Returns true, after a message, if all was copied.
bool TakeOver(Files& files, const std::string& older, const Folders& folders,
              const Messages& toUser) {
  const TakenOver done = TakeOver(files, older, folders);
  if (done.error) {
    toUser.prompts.Show(Icon::Exclamation, FileMessage(toUser.texts, *done.error) + kParagraph +
                                               toUser.Text(text::kTakeOverFailed));
    return false;
  }
  std::string message =
      toUser.Text(text::kTakeOverDone, {std::to_string(done.copied), Windows1252FromUtf8(older)});
  if (done.kept != 0) {
    message += kParagraph + toUser.Text(text::kTakeOverKept, {std::to_string(done.kept)});
  }
  toUser.prompts.Show(Icon::Information, message);
  return true;
}

// The folder may have been removed since the installation.
std::optional<FileError> Problem(Files& files, const Folders& folders) {
  auto problem = WriteProblem(files, folders.data);
  if (!problem || problem->reason != FileError::Reason::Missing) return problem;
  problem = files.MakeDirectory(folders.data);
  return problem ? problem : WriteProblem(files, folders.data);
}

}  // namespace

std::string NotWritableMessage(const LanguageTexts& texts, const FileError& problem) {
  return FileMessage(texts, problem) + kParagraph + texts.Text(text::kDataNotWritable);
}

LanguageTexts FirstTexts(Files& files, const Folders& folders) {
  const std::string shipped =
      FileProfile(files, folders.shipped + kSettingsFile).ReadIni("General", "Language", "");
  const std::string language = folders.language.empty() ? shipped : folders.language;
  LanguageTexts texts;
  texts.Read(files.Read(LocalPath(folders.shipped, "zek_lang." + language)).bytes);
  return texts;
}

bool PrepareDataFolder(Files& files, const Folders& folders, const Messages& toUser,
                       const std::function<std::string()>& choose) {
  if (const auto problem = Problem(files, folders)) {
    toUser.prompts.Show(Icon::Exclamation, NotWritableMessage(toUser.texts, *problem));
    return false;
  }
  for (Answer answer = AskForOlder(folders, toUser); answer != Answer::No;
       answer = AskForOlder(folders, toUser)) {
    if (answer == Answer::Cancel) return false;
    const std::string older = choose();
    if (!older.empty() && TakeOver(files, older, folders, toUser)) return true;
  }
  const auto error = BeginAfresh(files, folders);
  if (error) toUser.Tell(*error);
  return !error;
}

}  // namespace zek
