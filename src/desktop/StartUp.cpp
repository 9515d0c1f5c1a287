#include "desktop/StartUp.h"

#include <iostream>

#include <wx/dirdlg.h>
#include <wx/log.h>
#include <wx/stdpaths.h>

#include "desktop/FrontRequest.h"
#include "forms/main/ZV_Lang.h"
#include "lang/TextNumbers.h"
#include "system/Process.h"
#include "ui/WxText.h"

namespace zek {
namespace {

// One instance for each program directory and user.
bool IsAnotherRunning(wxSingleInstanceChecker& instance, const std::string& programPath) {
  const wxString name = InstanceName(programPath);
  const wxLogNull quiet;  // without a lock file, every instance may run
  return instance.Create(name, wxStandardPaths::Get().GetTempDir()) && instance.IsAnotherRunning();
}

}  // namespace

std::string Complaint(const CommandLine& line, const Folders& folders, bool isNew) {
  if (!line.error.empty()) return line.error;
  const std::string unusable = WhyUnusable(folders);
  return unusable.empty() && isNew && IsUnattended(line) ? WhyNew(folders) : unusable;
}

bool FirstStart(Files& files, const Folders& folders, const Messages& toUser) {
  return PrepareDataFolder(files, folders, toUser, [&toUser] {
    wxDirDialog dialog(nullptr, ToWx(toUser.Text(text::kTakeOverFolder)), wxString(),
                       wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? dialog.GetPath().utf8_string() : std::string();
  });
}

std::optional<ExitStatus> StartUp(ZV_Proc& proc, const CommandLine& line,
                                  wxSingleInstanceChecker& instance) {
  const bool attended = !line.tour && !IsUnattended(line);
  StartOptions options;
  options.switches = line.text;
  options.chooseLanguage = [&] {
    if (!attended) {
      std::cerr << "zekview: setting Language names no language file\n";
      return false;
    }
    ZV_Lang form(proc);
    form.ShowModal();
    return LoadLanguage(proc);
  };
  options.mayStart = [&]() -> std::optional<ExitStatus> {
    if (!IsAnotherRunning(instance, proc.settings.ProgramPath)) return std::nullopt;
    proc.ToUser().Tell(Icon::Information, text::kAlreadyRunning);
    if (attended) FrontRequest(proc.settings.ProgramPath).Ask();
    return attended ? kDone : kFailed;
  };
  const std::optional<ExitStatus> ended = StartSession(proc, options);
  if (!ended) TellUnlessWritable(proc);
  proc.settings.DecimalSeparator = SystemDecimalSeparator();
  return ended;
}

}  // namespace zek
