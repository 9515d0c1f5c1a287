// zekview: the desktop program.

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <wx/app.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/sstream.h>
#include <wx/stdpaths.h>

#include "desktop/DemoPlant.h"
#include "desktop/FrontRequest.h"
#include "desktop/StartUp.h"
#include "desktop/Tour.h"
#include "forms/main/ZV_Main.h"
#include "system/CrashReport.h"
#include "system/EventLog.h"
#include "system/Paths.h"
#include "system/Process.h"
#include "ui/WxPrompts.h"
#include "wxbase/SystemSession.h"

namespace zek {
namespace {

// Creates an object that the toolkit takes as a raw pointer and deletes.
template <class Object, class... Arguments>
Object* Given(Arguments&&... arguments) {
  return std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}

// NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the toolkit deletes these.
// Stores the windows' sizes in the user's configuration directory, or nowhere without `remember`.
void UseConfiguration(bool remember) {
  if (!remember) {
    wxStringInputStream nothing{wxString()};
    delete wxConfigBase::Set(Given<wxFileConfig>(nothing));
    return;
  }
  wxStandardPaths& paths = wxStandardPaths::Get();
  paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
  const wxString directory = paths.GetUserConfigDir() + "/zekview";
  const wxLogNull quiet;  // without write access the sizes are just not remembered
  wxFileName::Mkdir(directory, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
  delete wxConfigBase::Set(Given<wxFileConfig>("zekview", wxString(), directory + "/zekview.conf",
                                               wxString(), wxCONFIG_USE_LOCAL_FILE));
}

// Sends the toolkit's errors, for example a missing display, to standard error.
void UseErrorOutput() { delete wxLog::SetActiveTarget(Given<wxLogStderr>()); }
// NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

class Program final : public wxApp {
 public:
  explicit Program(CommandLine line) : line_(std::move(line)) {}

  // Overrides the toolkit's version, which would parse the command line.
  bool OnInit() override { return true; }

  int OnRun() override {
    if (!IsUnattended(line_) || !HasSwitch(line_.text, "/EVENTLOG")) return Run();
    RecordCrashes();
    const KeptErrors errors;
    const int status = Run();
    const std::string outcome =
        desktop_ ? Utf8FromWindows1252(desktop_->proc.batch.Outcome) : std::string();
    if (!RecordEvent(status == kDone, outcome.empty() ? errors.Text() : outcome))
      std::cerr << "zekview: the system's log of events could not be written\n";
    return status;
  }

  int OnExit() override {
    DeleteAllTLWs();  // windows must not outlive the session
    tour_.reset();
    frontRequest_.reset();
    unattended_.reset();
    desktop_.reset();
    demoTitles_.reset();
    demo_.reset();
    const wxLogNull quiet;
    delete wxConfigBase::Set(nullptr);
    return wxApp::OnExit();
  }

  // Ends the program with a report. The toolkit would ask whether to go on, on Windows.
  bool OnExceptionInMainLoop() override { throw; }
  void OnUnhandledException() override { ReportException(); }

  void OnAssertFailure(const wxChar* file, int line, const wxChar* /*function*/,
                       const wxChar* condition, const wxChar* message) override {
    std::cerr << "zekview: " << wxString(file).utf8_str() << ':' << line << ": "
              << wxString(condition).utf8_str() << ' ' << wxString(message).utf8_str() << '\n';
  }

 private:
  int Run() {
    SetAppName("zekview");
    // No window needs these events; by default every window would get them after each tick.
    wxIdleEvent::SetMode(wxIDLE_PROCESS_SPECIFIED);
    wxUpdateUIEvent::SetMode(wxUPDATE_UI_PROCESS_SPECIFIED);
    DiskFiles files;
    const Folders folders = FoldersOf(files, ExecutableDirectory(), line_.dir);
    CatchCrashes(folders.data, "zekview");
    const bool attended = !line_.tour && !line_.demo && !IsUnattended(line_);
    const bool isNew = IniPathOf(line_, folders.data) == folders.data && IsNew(files, folders);
    LanguageTexts firstTexts;
    if (attended && isNew) {
      firstTexts = FirstTexts(files, folders);
      prompts_.Speak(firstTexts);
      if (!FirstStart(files, folders, {firstTexts, prompts_})) return kFailed;
    }
    std::string programPath = folders.data;
    if (const std::string complaint = Complaint(line_, folders, isNew); !complaint.empty()) {
      if (IsUnattended(line_)) {
        std::cerr << "zekview: " << complaint << '\n';
      } else {
        Complain("zekview: " + complaint);
      }
      return kWrongUsage;
    }
    std::string iniPath = IniPathOf(line_, programPath);
    if (line_.demo) {
      demo_.emplace();
      if (const std::string fault = demo_->Start({folders.shipped, programPath}, iniPath);
          !fault.empty()) {
        demo_.reset();
        Complain("zekview: " + fault);
        return kFailed;
      }
      programPath = iniPath = demo_->Folder();
      line_.text += (line_.text.empty() ? "/DIALOG:" : " /DIALOG:") + demo_->Topic();
    }
    UseConfiguration(!line_.tour);
    Prompts* const prompts = line_.tour ? static_cast<Prompts*>(&tourPrompts_) : &prompts_;
    desktop_ = std::make_unique<SystemSession>(programPath, iniPath, *prompts);
    desktop_->proc.settings.Demo = line_.demo;
    desktop_->proc.settings.ShippedPath = folders.shipped;
    prompts_.Speak(desktop_->proc.texts);
    if (IsUnattended(line_)) {
      unattended_.emplace(desktop_->proc);
      CatchInterrupts();
    }
    if (const auto ended = StartUp(desktop_->proc, line_, instance_)) return *ended;
    if (line_.demo) demoTitles_.emplace();
    ShowMain();
    frontRequest_.emplace(programPath);
    frontRequest_->Answer();
    wxApp::OnRun();
    if (tour_ && !tour_->Succeeded()) return kFailed;
    return unattended_ && !desktop_->proc.batch.Succeeded ? kFailed : kDone;
  }

  void ShowMain() {
    auto* const main = Given<ZV_Main>(desktop_->proc, desktop_->turn);
    SetTopWindow(main);
    main->Show();
    if (line_.tour) {
      tour_ = std::make_unique<Tour>(*line_.tour, desktop_->proc, desktop_->turn, tourPrompts_);
      tour_->Begin();
    }
  }

  CommandLine line_;
  WxPrompts prompts_;
  TourPrompts tourPrompts_;
  wxSingleInstanceChecker instance_;
  std::unique_ptr<SystemSession> desktop_;
  std::optional<Unattended> unattended_;
  std::optional<FrontRequest> frontRequest_;
  std::unique_ptr<Tour> tour_;
  std::optional<DemoPlant> demo_;
  std::optional<DemoTitles> demoTitles_;
};

}  // namespace
}  // namespace zek

int main(int argc, char** argv) {
  zek::CommandLine line = zek::ParseCommandLine(zek::ProgramArguments(argc, argv));
  if (!line.help.empty()) {
    zek::Inform(line.help);
    return zek::kDone;
  }
  zek::UseErrorOutput();
  wxApp::SetInstance(new zek::Program(std::move(line)));  // the toolkit deletes it
  int noArguments = 1;  // already parsed; the toolkit would convert them by the locale
  return wxEntry(noArguments, argv);
}
