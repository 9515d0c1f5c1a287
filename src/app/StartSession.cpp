#include "app/StartSession.h"

#include <algorithm>
#include <utility>

#include "app/CrashReports.h"
#include "app/FirstStart.h"
#include "lang/TextNumbers.h"
#include "settings/CommandLine.h"
#include "settings/DataFolder.h"
#include "settings/TagPassword.h"
#include "system/Paths.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

// Stop if ZEKView.INI exists but can't be read: all settings would silently have their defaults.
bool CheckSettingsFile(ZV_Proc& proc) {
  const std::string path = proc.settings.IniPath + kSettingsFile;
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
  const TagAnswer created = proc.tags.Create();
  if (created.status != 0) return true;
  constexpr std::string_view notRegistered = "(80040154)";
  constexpr bool bits64 = sizeof(void*) == 8;
  const std::string reason = created.arrived ? created.fault : proc.Text(text::kTagSilent);
  std::string message = proc.Text(text::kNoTagObject);
  if (!reason.empty()) message += "\r\n\r\n" + reason;
  if (bits64 && reason.ends_with(notRegistered)) {
    message += "\r\n\r\n" + proc.Text(text::kTagObjectNeeds32);
  }
  proc.prompts.Show(Icon::None, message);
  return false;
}

// Reports a password that can't be read; each log-on that it stops does so again.
void CheckTagPassword(ZV_Proc& proc) {
  const TagPassword::Kind kind = ReadTagPassword(proc.profile).kind;
  if (kind == TagPassword::Kind::Lost) {
    proc.ToUser().Tell(Icon::Exclamation, text::kTagPasswordLost);
  } else if (kind == TagPassword::Kind::Plain) {
    proc.log.Add(proc.ToUser().Text(text::kTagPasswordPlain,
                                    {Windows1252FromUtf8(proc.settings.IniPath + kSettingsFile)}));
  }
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

// Finds a file, ignoring case; returns its name, or "" if it does not exist.
std::string NameOnDisk(const Files& files, const std::string& folder, const std::string& name) {
  const std::vector<std::string> names = files.List(folder);
  const auto same = std::find_if(names.begin(), names.end(), [&name](const std::string& each) {
    return EqualNoCase(each, name);
  });
  return same == names.end() ? std::string() : *same;
}

bool IsMissing(const FileContent& file) {
  return file.error && file.error->reason == FileError::Reason::Missing;
}

FileContent ReadAnyCase(const Files& files, const std::string& folder, const std::string& name) {
  FileContent file = files.Read(LocalPath(folder, name));
  if (!IsMissing(file)) return file;
  const std::string found = NameOnDisk(files, folder, name);
  return found.empty() ? std::move(file) : files.Read(folder + found);
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
  TellCrashes(proc);
  if (options.contacts && !NeedTags(proc)) return kFailed;
  return std::nullopt;
}

bool NeedTags(ZV_Proc& proc) {
  if (!proc.settings.TagMode) return true;
  if (!CreateTagObject(proc)) return false;
  CheckTagPassword(proc);
  return true;
}

bool LoadLanguage(ZV_Proc& proc) {
  const std::string language = proc.profile.ReadIni("General", "Language", "");
  if (language.empty()) return false;
  const FileContent file = ReadShipped(proc, "zek_lang." + language);
  if (!file.error) {
    proc.texts.Read(file.bytes);
    return true;
  }
  if (file.error->reason != FileError::Reason::Missing) {
    proc.ToUser().Tell(*file.error);
  }
  return false;
}

FileContent ReadShipped(const ZV_Proc& proc, const std::string& name) {
  FileContent file = ReadAnyCase(proc.files, proc.settings.ProgramPath, name);
  const std::string& shipped = proc.settings.ShippedPath;
  if (!IsMissing(file) || shipped.empty()) return file;
  return ReadAnyCase(proc.files, shipped, name);
}

std::vector<LanguageChoice> LanguagesOf(const ZV_Proc& proc) {
  std::vector<LanguageChoice> choices = ListLanguages(proc.files, proc.settings.ProgramPath);
  if (proc.settings.ShippedPath.empty()) return choices;
  for (LanguageChoice& shipped : ListLanguages(proc.files, proc.settings.ShippedPath)) {
    const auto same = [&shipped](const LanguageChoice& own) {
      return own.number == shipped.number;
    };
    if (std::none_of(choices.begin(), choices.end(), same)) choices.push_back(std::move(shipped));
  }
  return choices;
}

void TellUnlessWritable(ZV_Proc& proc) {
  if (proc.settings.ViewOnly) return;
  if (const auto problem = WriteProblem(proc.files, proc.settings.ProgramPath)) {
    proc.prompts.Show(Icon::Exclamation, NotWritableMessage(proc.texts, *problem));
  }
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
