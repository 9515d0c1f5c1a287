#include "desktop/StartUp.h"

#include <functional>
#include <iostream>
#include <system_error>

#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include "desktop/Unattended.h"
#include "forms/main/ZV_Lang.h"
#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "system/Process.h"

namespace zek {
namespace {

// One instance for each program directory and user.
bool IsAnotherRunning(wxSingleInstanceChecker& instance, const std::string& programPath) {
  const wxString name =
      wxString::Format("zekview-%s-%zx", wxGetUserId(), std::hash<std::string>{}(programPath));
  const wxLogNull quiet;  // where no lock can be made, every instance is the only one
  return instance.Create(name, wxStandardPaths::Get().GetTempDir()) && instance.IsAnotherRunning();
}

// Asks for a language when the settings name none that is there.
bool ChooseLanguage(Desktop& desktop, bool mayAsk) {
  if (LoadLanguage(desktop.proc)) return true;
  if (!mayAsk) return false;
  ZV_Lang form(desktop.proc);
  form.ShowModal();
  return LoadLanguage(desktop.proc);
}

}  // namespace

std::string Complaint(const CommandLine& line, const std::string& programPath) {
  if (!line.error.empty()) return line.error;
  std::error_code error;
  if (!std::filesystem::is_directory(PathOf(programPath), error)) {
    return "There is no directory " + programPath + (error ? " (" + error.message() + ")" : "");
  }
  const std::filesystem::directory_iterator readable(PathOf(programPath), error);
  if (error) return "The directory " + programPath + " can't be read (" + error.message() + ")";
  return {};
}

std::optional<int> StartUp(Desktop& desktop, const CommandLine& line,
                           wxSingleInstanceChecker& instance) {
  ZV_Proc& proc = desktop.proc;
  if (!CheckSettingsFile(proc)) return kFailed;
  const bool attended = !line.tour && !IsUnattended(line);
  if (!ChooseLanguage(desktop, attended)) {
    if (!attended) std::cerr << "zekview: setting Language names no language file\n";
    return kFailed;
  }
  if (IsAnotherRunning(instance, proc.settings.ProgramPath)) {
    proc.outside.prompts.Show(Icon::Information, proc.Text(text::kAlreadyRunning));
    return attended ? kDone : kFailed;
  }
  if (!LoadSettings(proc.settings, line.text, *desktop.profile, proc.texts, proc.outside.prompts)) {
    return kFailed;
  }
  proc.settings.DecimalSeparator = SystemDecimalSeparator();
  if (proc.settings.TagMode && !desktop.tags.Create()) {
    proc.outside.prompts.Show(Icon::None, proc.Text(text::kNoTagObject));
    return kFailed;
  }
  return std::nullopt;
}

}  // namespace zek
