#include "app/StartSession.h"

#include <algorithm>

#include "lang/TextNumbers.h"
#include "settings/CommandLine.h"
#include "system/Paths.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

// Stop if ZEKView.INI exists but can't be read: all settings would silently have their defaults.
bool CheckSettingsFile(ZV_Proc& proc) {
  const std::string path = proc.settings.IniPath + "ZEKView.INI";
  const FileContent file = proc.files.Read(path);
  if (!file.error) return true;
  if (file.error->reason != FileError::Reason::Missing) {
    proc.prompts.Show(Icon::Critical, FileMessage(proc.texts, *file.error));
    return false;
  }
  if (proc.settings.IniPath != proc.settings.ProgramPath) {
    proc.ToUser().Tell(Icon::Exclamation, text::kNoSettingsFile, {Windows1252FromUtf8(path)});
  }
  return true;
}

void TellUnknownSwitches(ZV_Proc& proc, std::string_view switches) {
  const std::string unknown = UnknownSwitches(switches);
  if (!unknown.empty()) proc.ToUser().Tell(Icon::Exclamation, text::kUnknownSwitch, {unknown});
}

bool CreateTagObject(ZV_Proc& proc) {
  if (proc.tags.Create()) return true;
  constexpr std::string_view notRegistered = "(80040154)";
  constexpr bool bits64 = sizeof(void*) == 8;
  const std::string reason = proc.tags.TakeFault();
  std::string message = proc.Text(text::kNoTagObject);
  if (!reason.empty()) message += "\r\n\r\n" + reason;
  if (bits64 && reason.ends_with(notRegistered)) {
    message += "\r\n\r\n" + proc.Text(text::kTagObjectNeeds32);
  }
  proc.prompts.Show(Icon::None, message);
  return false;
}

// A name in the settings stays in its folder; "*", the date, is no part of a name.
void BeginSessionFile(ZV_Proc& proc, const StartOptions& options) {
  const std::string& name = proc.settings.SessionFile;
  const std::size_t star = std::min(name.rfind('*'), name.size());
  std::string path;
  if (!name.empty()) {
    path = LocalPath(WithSeparator(proc.settings.ProgramPath + "Sessions"), name.substr(0, star));
    if (star < name.size()) path += "*" + LocalPath({}, name.substr(star + 1));
  }
  proc.sessionFile.Begin(proc.log, options.sessionFile.value_or(path),
                         proc.settings.SessionFileCount);
}

// Finds a file in the program directory, ignoring case: copied files may have names in capitals.
// Returns its name there, or "" if it does not exist.
std::string NameOnDisk(const ZV_Proc& proc, const std::string& name) {
  const std::vector<std::string> names = proc.files.List(proc.settings.ProgramPath);
  const auto same = std::find_if(names.begin(), names.end(), [&name](const std::string& each) {
    return EqualNoCase(each, name);
  });
  return same == names.end() ? std::string() : *same;
}
}  // namespace

std::optional<ExitStatus> StartSession(ZV_Proc& proc, const StartOptions& options) {
  if (!CheckSettingsFile(proc)) return kWrongUsage;
  if (!LoadLanguage(proc) && !options.chooseLanguage()) return kFailed;
  if (const auto ended = options.mayStart()) return ended;
  TellUnknownSwitches(proc, options.switches);
  if (!LoadSettings(proc.settings, options.switches, proc.profile, proc.texts, proc.prompts)) {
    return kFailed;
  }
  BeginSessionFile(proc, options);
  if (options.contacts && proc.settings.TagMode && !CreateTagObject(proc)) return kFailed;
  return std::nullopt;
}

bool LoadLanguage(ZV_Proc& proc) {
  const std::string language = proc.profile.ReadIni("General", "Language", "");
  if (language.empty()) return false;
  const std::string path = LocalPath(proc.settings.ProgramPath, "zek_lang." + language);
  FileContent file = proc.files.Read(path);
  if (file.error && file.error->reason == FileError::Reason::Missing) {
    const std::string found = NameOnDisk(proc, "zek_lang." + language);
    if (!found.empty()) file = proc.files.Read(proc.settings.ProgramPath + found);
  }
  if (!file.error) {
    proc.texts.Read(file.bytes);
    return true;
  }
  if (file.error->reason != FileError::Reason::Missing) {
    proc.ToUser().Tell(*file.error);
  }
  return false;
}

void LoadTopics(ZV_Proc& proc) {
  const unsigned before = proc.prompts.Shown();
  proc.topics.LoadTopics(proc.profile, proc.settings, proc.texts, proc.prompts);
  proc.batch.PlantCut = proc.prompts.Shown() != before;
}

void LoadTree(ZV_Proc& proc) {
  const unsigned before = proc.prompts.Shown();
  proc.tree = BuildObjectTree(proc.topics, proc.profile, proc.texts, proc.prompts);
  if (proc.prompts.Shown() != before) proc.batch.PlantCut = true;
}

}  // namespace zek
