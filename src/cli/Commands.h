#pragma once

#include <functional>
#include <istream>
#include <ostream>

#include "app/ZV_Proc.h"
#include "cli/Arguments.h"
#include "cli/CliPrompts.h"

namespace zek::cli {

/// What a command works with. Standard output is UTF-8.
struct Console {
  ZV_Proc& proc;
  CliPrompts& prompts;
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  /// Set by a command that has something to put in order when it is interrupted (Ctrl+C). Called
  /// from the event loop.
  std::function<void()> Interrupted = nullptr;
};

/// Start-up as the desktop program does it: language, settings, tag object, topics.
ExitStatus StartSession(Console& console);

/// Runs one command; waits run in `console.proc`'s event loop.
ExitStatus RunCommand(Console& console, const Arguments& arguments);

}  // namespace zek::cli
