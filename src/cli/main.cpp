// zekview-cli: catalogue commands for scripts and scheduled jobs, without a window.

#include <algorithm>
#include <iostream>
#include <memory>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/log.h>
#include <wx/socket.h>

#include "commands/Commands.h"
#include "export/BatchExport.h"
#include "system/CrashReport.h"
#include "system/EventLog.h"
#include "system/Paths.h"
#include "system/Process.h"
#include "text/Windows1252.h"
#include "wxbase/SystemSession.h"

namespace zek::cli {
namespace {

// Shows the progress of a transfer on one line of the terminal and overwrites that line.
class TerminalProgress {
 public:
  TerminalProgress(ZV_Proc& proc, bool wanted) : proc_(proc), status_(proc.status) {
    if (!wanted || !IsErrorTerminal()) return;
    shows_ = true;
    status_.Changed = [this] { Show(); };
  }
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;
  ~TerminalProgress() {
    if (!shows_) return;
    status_.Changed = [] {};
    if (!last_.empty()) std::cerr << "\r\x1B[K" << std::flush;
  }

 private:
  void Show() {
    std::string text = BatchProgress(proc_);
    if (!text.empty()) text += "  ";
    text += status_.Transfer.empty() ? status_.Progress : status_.Transfer;
    if (!status_.Waiting.empty()) text += "  " + status_.Waiting;
    text.resize(std::min(text.size(), kColumns));
    if (text == last_) return;
    last_ = text;
    std::cerr << '\r' << Utf8FromWindows1252(text) << "\x1B[K" << std::flush;
  }

  static constexpr std::size_t kColumns = 79;  // more would wrap to a second line

  const ZV_Proc& proc_;
  StatusPanels& status_;
  bool shows_ = false;
  std::string last_;
};

// Sockets and timers need hidden windows on Windows. In a session that can't have any, the timers
// never tick, so that no wait would end.
bool HasSockets() {
  const wxLogNull quiet;
  if (wxSocketBase::Initialize()) return true;
  std::cerr << "zekview-cli: this session of the system has no sockets\n";
  return false;
}

class Application final : public wxAppConsole {
 public:
  explicit Application(Arguments arguments) : arguments_(std::move(arguments)) {}

  // Waits need the running event loop, so the command starts as its first event.
  int OnRun() override {
    CallAfter([this] {
      status_ = arguments_.eventLog ? RunRecorded() : Run();
      ExitMainLoop();
    });
    wxAppConsole::OnRun();
    return status_;
  }

  void OnUnhandledException() override {
    std::cerr << "zekview-cli: ended by a fault; the folder Crashes has a report\n";
    ReportException();
  }

 private:
  // The record also reports what ended the program before the export began.
  ExitStatus RunRecorded() {
    RecordCrashes();
    const KeptErrors errors;
    const ExitStatus status = Run();
    if (!RecordEvent(status == kDone, outcome_.empty() ? errors.Text() : outcome_))
      std::cerr << "zekview-cli: the system's log of events could not be written\n";
    return status;
  }

  ExitStatus Run() {
    DiskFiles files;
    const Folders folders = FoldersOf(files, ExecutableDirectory(), arguments_.dir);
    if (const std::string why = WhyUnusable(folders); !why.empty()) {
      std::cerr << "zekview-cli: " << why << '\n';
      return folders.unknown ? kFailed : kWrongUsage;
    }
    const std::string& programPath = folders.data;
    CatchCrashes(programPath, "zekview-cli");
    if (arguments_.command == "take-over") {
      return TakeOverFolder(files, folders, arguments_, {std::cout, std::cerr});
    }
    if (IsNew(files, folders) && !arguments_.ini) {
      std::cerr << "zekview-cli: " << WhyNew(folders) << '\n';
      return kWrongUsage;
    }
    const std::string iniPath = arguments_.ini ? WithSeparator(*arguments_.ini) : programPath;
    if (arguments_.command == "password") {
      return SetTagPassword(files, iniPath + kSettingsFile, std::cin, {std::cout, std::cerr});
    }
    if (arguments_.Contacts() && !HasSockets()) return kFailed;
    CliPrompts prompts(std::cerr);
    SystemSession session(programPath, iniPath, prompts);
    ZV_Proc& proc = session.proc;
    proc.settings.ShippedPath = folders.shipped;
    WxTick tick([&proc] { proc.Tick(); });
    tick.Begin();
    // `send` prints replies while it waits; progress would mix with them.
    const bool wanted = arguments_.command != "send" && !arguments_.eventLog;
    const TerminalProgress progress(proc, wanted);
    // Transfers and exports must end properly. Until then the program may block in its input, where
    // it would ignore interrupts.
    Console console{proc, prompts, std::cin, std::cout, std::cerr, CatchInterrupts, HasSockets};
    const auto ended = StartCommands(console, arguments_);
    if (!ended) TellUnlessWritable(proc);
    const ExitStatus status = ended ? *ended : RunCommand(console, arguments_);
    outcome_ = Utf8FromWindows1252(proc.batch.Outcome);
    if (std::cout.flush()) return status;
    std::cerr << "zekview-cli: standard output could not be written\n";
    return status == kDone ? kFailed : status;
  }

  Arguments arguments_;
  ExitStatus status_ = kFailed;
  std::string outcome_;  // the report of an export, UTF-8
};

}  // namespace
}  // namespace zek::cli

int main(int argc, char** argv) {
  zek::PrepareStandardStreams();
  zek::cli::Arguments arguments = zek::cli::ParseArguments(zek::ProgramArguments(argc, argv));
  if (!arguments.help.empty()) {
    std::cout << arguments.help;
    return zek::kDone;
  }
  if (!arguments.error.empty()) {
    std::cerr << "zekview-cli: " << arguments.error << " (--help shows the usage)\n";
    return zek::kWrongUsage;
  }
  wxAppConsole::SetInstance(
      new zek::cli::Application(std::move(arguments)));  // the toolkit deletes it
  int noArguments = 1;  // already parsed; the toolkit would convert them by the locale
  return wxEntry(noArguments, argv);
}
