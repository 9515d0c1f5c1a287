#include "settings/DataFolder.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "settings/ProfileEncoding.h"
#include "settings/ProfileText.h"
#include "system/Paths.h"
#include "text/Fields.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

// The folders with what must not be lost. Exports stay where they are.
constexpr std::array<const char*, 6> kRecordFolders = {"History/", "Known/",      "Before/",
                                                       "Begun/",   "Unfinished/", "Plans/"};

std::string MarkerValue(const std::string& marker, std::string_view key) {
  return ProfileValue(marker, "ZekView", key).value_or("");
}

bool IsLanguage(const std::string& text) { return text.size() == 3 && IsNumeric(text); }

// Not the texts that came with a program: newer ones are beside this program.
bool IsOfUser(const Files& files, const std::string& name, const Folders& folders) {
  const std::string capitals = UpperCase(name);
  const auto among = [&capitals](auto... each) { return ((capitals == each) || ...); };
  if (among("README.TXT", "L\xC3\x84SMIG.TXT", "L\xC3\xA4SMIG.TXT", "LASMIG.TXT", "SHA256SUMS.TXT"))
    return false;
  if (capitals.starts_with("LICENCE")) return false;
  if (capitals.ends_with(".TXT") || capitals.find(".PLAN") != std::string::npos) return true;
  const bool shipped = folders.Installed() && files.Exists(folders.shipped + name);
  return capitals.starts_with("ZEK_") && !shipped;
}

// Copies one file unless it is there.
void Copy(Files& files, const std::string& from, const std::string& to, TakenOver& done) {
  const FileContent source = files.Read(from);
  if (source.error) {
    done.error = source.error;
    return;
  }
  const FileContent present = files.Read(to);
  if (!present.error) {
    ++(present.bytes == source.bytes ? done.copied : done.kept);
  } else if (present.error->reason != FileError::Reason::Missing) {
    done.error = present.error;
  } else {
    done.error = files.Write(to, source.bytes);
    if (!done.error) ++done.copied;
  }
}

// Copies the records of one folder.
void CopyFolder(Files& files, const std::string& from, const std::string& to, TakenOver& done) {
  const std::vector<std::string> names = files.List(from);
  if (!names.empty()) done.error = files.MakeDirectory(to);
  for (const std::string& name : names) {
    if (done.error) return;
    if (files.Exists(from + name)) Copy(files, from + name, to + name, done);
  }
}

}  // namespace

Folders FoldersOf(const Files& files, const std::string& beside,
                  const std::optional<std::string>& dir) {
  Folders folders{.data = beside, .shipped = {}, .language = {}};
  const FileContent file = files.Read(beside + kMarkerFile);
  if (file.error && file.error->reason != FileError::Reason::Missing) {
    folders.shipped = beside;
    if (!dir) folders.unknown = file.error;
  }
  if (!file.error) {
    const std::string marker = ProfileEncoding(file.bytes).Decoded(file.bytes);
    const std::string folder = MarkerValue(marker, "Folder");
    const std::string language = MarkerValue(marker, "Language");
    folders.shipped = beside;
    if (!folder.empty()) folders.data = WithSeparator(Utf8FromWindows1252(folder));
    if (IsLanguage(language)) folders.language = language;
  }
  if (dir) folders.data = WithSeparator(*dir);
  folders.chosen = dir.has_value();
  return folders;
}

bool IsNew(const Files& files, const Folders& folders) {
  return folders.Installed() && !folders.chosen && !folders.unknown &&
         !files.Exists(folders.data + kSettingsFile);
}

std::optional<FileError> BeginAfresh(Files& files, const Folders& folders) {
  if (files.Exists(folders.data + kSettingsFile)) return std::nullopt;  // another program began
  FileContent settings = files.Read(folders.shipped + kSettingsFile);
  if (settings.error) return settings.error;
  if (!folders.language.empty()) {
    const ProfileEncoding encoding(settings.bytes);
    settings.bytes =
        encoding.WithValue(std::move(settings.bytes), "General", "Language", folders.language);
  }
  return files.Write(folders.data + kSettingsFile, settings.bytes);
}

TakenOver TakeOver(Files& files, const std::string& older, const Folders& folders) {
  TakenOver done;
  const std::string from = WithSeparator(older);
  if (const FileContent settings = files.Read(from + kSettingsFile); settings.error) {
    done.error = settings.error;
    return done;
  }
  for (const std::string& name : files.List(from)) {
    if (!files.Exists(from + name) || !IsOfUser(files, name, folders)) continue;
    Copy(files, from + name, folders.data + name, done);
    if (done.error) return done;
  }
  for (const char* const folder : kRecordFolders) {
    CopyFolder(files, from + folder, folders.data + folder, done);
    if (done.error) return done;
  }
  Copy(files, from + kSettingsFile, folders.data + kSettingsFile, done);
  return done;
}

std::string WhyUnusable(const Folders& folders) {
  if (folders.unknown) {
    return "The file " + folders.unknown->path + " can't be read (" +
           folders.unknown->systemMessage + ")";
  }
  std::error_code error;
  if (!std::filesystem::is_directory(PathOf(folders.data), error)) {
    return "There is no directory " + folders.data + (error ? " (" + error.message() + ")" : "");
  }
  const std::filesystem::directory_iterator readable(PathOf(folders.data), error);
  if (error) return "The directory " + folders.data + " can't be read (" + error.message() + ")";
  return {};
}

std::string WhyNew(const Folders& folders) {
  return folders.data + " has no settings yet: start zekview once, or run zekview-cli take-over";
}

std::optional<FileError> WriteProblem(Files& files, const std::string& folder) {
  CreatedFile probe = files.Create(folder + "WRITE.TST");
  if (probe.error) probe.error->path = folder;
  return std::move(probe.error);  // without Commit the file goes again
}

}  // namespace zek
