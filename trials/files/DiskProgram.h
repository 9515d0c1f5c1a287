#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "commands/Commands.h"
#include "settings/Profile.h"
#include "support/TransferSession.h"
#include "system/DiskFiles.h"

namespace zek::test {

/// The command line program on the real disk, with a controller in memory and a stopped clock.
class DiskProgram {
 public:
  /// `home` holds ZEKView.INI, the language files and the local copies; it ends in "/".
  explicit DiskProgram(const std::string& home)
      : home_(home), profile_(OpenSettingsFile(files, home + "ZEKView.INI")) {}

  DiskFiles files;
  TransferSession controller;
  std::string input;       // standard input
  std::ostringstream out;  // UTF-8
  std::ostringstream err;

  /// Returns the exit status; `work` runs after the start instead of a command.
  template <class Work>
  int Start(Work work, const cli::Arguments& arguments = {}) {
    cli::CliPrompts prompts(err);
    std::istringstream in(input);
    ZV_Proc proc({files, *profile_, controller.turn, prompts, controller.socket, controller.dde,
                  controller.tagServer, [] { return LocalTime{2026, 11, 21, 8, 30, 0}; }});
    proc.settings.ProgramPath = home_;
    proc.settings.IniPath = home_;
    controller.turn.tick = [&proc] { proc.connection.Tick(); };
    cli::Console console{proc, prompts, in, out, err};
    const auto ended = cli::StartCommands(console, arguments);
    return ended ? *ended : work(console);
  }

  int Run(const std::vector<std::string>& words) {
    const cli::Arguments arguments = cli::ParseArguments(words);
    if (!arguments.error.empty()) {
      err << arguments.error << '\n';
      return kWrongUsage;
    }
    return Start([&](cli::Console& console) { return cli::RunCommand(console, arguments); },
                 arguments);
  }

 private:
  std::string home_;
  std::unique_ptr<Profile> profile_;
};

}  // namespace zek::test
