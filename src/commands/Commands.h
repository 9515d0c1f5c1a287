#pragma once

#include <istream>
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

/// Start-up as the desktop program does it: language, settings, tag object, topics.
ExitStatus StartSession(Console& console);

/// Runs one command; waits run in `console.proc`'s event loop.
ExitStatus RunCommand(Console& console, const Arguments& arguments);

}  // namespace zek::cli
