#pragma once

#include <istream>
#include <optional>
#include <ostream>

#include "app/ZV_Proc.h"
#include "commands/Arguments.h"
#include "commands/CliPrompts.h"

namespace zek::cli {

/// What a command works with. Standard output is UTF-8.
struct Console {
  ZV_Proc& proc;
  CliPrompts& prompts;
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// `StartSession` and the topics; the exit status when the program ends here, which was reported.
std::optional<ExitStatus> StartCommands(Console& console);

/// Runs one command; waits run in `console.proc`'s event loop.
ExitStatus RunCommand(Console& console, const Arguments& arguments);

}  // namespace zek::cli
