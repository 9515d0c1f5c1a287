// zekview-soak DIRECTORY: runs any number of zekview-cli commands in one process, with real
// sockets, event loop and files. Standard input has one command (get, put) per line, its words
// separated by tabs. The answer is a line with the exit status and two lengths, followed by two
// texts of these lengths: the standard output and the messages. The answer to the line "resources"
// is the number of timers created so far and the bytes of the heap in use, after free memory was
// returned to the system.
//
// A tick is 5 ms here instead of 200 ms, so that a thousand transfers with their time-outs take
// minutes.

#include <iostream>
#include <malloc.h>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>

#include "commands/CliPrompts.h"
#include "commands/Commands.h"
#include "system/Paths.h"
#include "system/Process.h"
#include "wxbase/SystemSession.h"

namespace zek::cli {
namespace {

constexpr int kTickMs = 5;

// Counts the timers that are created.
class CountingTraits final : public wxConsoleAppTraits {
 public:
  explicit CountingTraits(int& timers) : timers_(timers) {}

  wxTimerImpl* CreateTimerImpl(wxTimer* timer) override {
    ++timers_;
    return wxConsoleAppTraits::CreateTimerImpl(timer);
  }

 private:
  int& timers_;
};

class Soak final : public wxAppConsole {
 public:
  explicit Soak(std::string directory) : directory_(WithSeparator(std::move(directory))) {}

  // Waits must start from inside the running loop.
  int OnRun() override {
    CallAfter([this] {
      Run();
      ExitMainLoop();
    });
    wxAppConsole::OnRun();
    return status_;
  }

 protected:
  wxAppTraits* CreateTraits() override {
    return std::make_unique<CountingTraits>(timers_).release();  // the toolkit deletes it
  }

 private:
  void Run() {
    std::ostringstream err;
    CliPrompts prompts(err);
    SystemSession session(directory_, directory_, prompts);
    ZV_Proc& proc = session.proc;
    WxTick tick([&proc] { proc.connection.Tick(); });
    tick.Begin(kTickMs);
    std::ostringstream out;
    std::istringstream noInput;
    Console console{proc, prompts, noInput, out, err};
    if (const auto ended = StartCommands(console)) {
      status_ = *ended;
      std::cerr << err.str();
      return;
    }
    status_ = kDone;
    for (std::string line; std::getline(std::cin, line);) {
      if (line == "resources") {
        session.turn.Once();  // handle the events that the last transfer posted
        TellResources();
      } else {
        const Arguments arguments = ParseArguments(Words(line));
        const ExitStatus status =
            arguments.error.empty() ? RunCommand(console, arguments) : kFailed;
        Tell(status, out.str(), arguments.error + err.str());
        out.str({});
        err.str({});
      }
    }
  }

  static void Tell(ExitStatus status, const std::string& printed, const std::string& told) {
    std::cout << status << ' ' << printed.size() << ' ' << told.size() << '\n'
              << printed << told << std::flush;
  }

  static std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words;
    std::istringstream rest(line);
    for (std::string word; std::getline(rest, word, '\t');) words.push_back(word);
    return words;
  }

  void TellResources() const {
    ::malloc_trim(0);
    const struct mallinfo2 heap = ::mallinfo2();
    std::cout << timers_ << ' ' << heap.uordblks + heap.hblkhd << std::endl;
  }

  std::string directory_;
  int timers_ = 0;
  ExitStatus status_ = kFailed;
};

}  // namespace
}  // namespace zek::cli

int main(int argc, char** argv) {
  zek::PrepareStandardStreams();
  const std::vector<std::string> arguments = zek::ProgramArguments(argc, argv);
  if (arguments.size() != 1) {
    std::cerr << "zekview-soak: needs a program directory\n";
    return zek::kWrongUsage;
  }
  // The toolkit deletes it.
  wxAppConsole::SetInstance(std::make_unique<zek::cli::Soak>(arguments[0]).release());
  int noArguments = 1;
  return wxEntry(noArguments, argv);
}
