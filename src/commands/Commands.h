#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "app/ZV_Proc.h"
#include "commands/Arguments.h"
#include "commands/CliPrompts.h"

namespace zek::cli {

/// The session and the streams that a command uses. The streams are UTF-8.
struct Console {
  ZV_Proc& proc;
  CliPrompts& prompts;
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
  /// Called when the command has read its input: from now on it blocks no more.
  std::function<void()> hasInput = [] {};
};

/// Starts the session and loads the topics; `contacts`: for a command that may contact a
/// controller. Returns an exit status, after a message, if the program must end.
std::optional<ExitStatus> StartCommands(Console& console, bool contacts = true);

/// Runs one command; at its end, every tag that it opened is switched off. Waits run the event loop
/// of `console.proc`.
ExitStatus RunCommand(Console& console, const Arguments& arguments);

/// Reads FILE into the editor's table for the node and prints its record lines or, with --rebuild,
/// the lines that a save of the unchanged table would send. The status is 1 if a line could not be
/// read; the lines that were read are still printed.
ExitStatus Check(Console& console, const CatalogueId& id, std::size_t node,
                 const Arguments& arguments);

/// Exports the catalogues of every time control to files in "Batch": the kinds in the operands, or
/// all three without operands. Prints the file names, and failures on standard error.
ExitStatus Export(Console& console, const Arguments& arguments);

/// Lists the earlier local copies of a catalogue, the newest first. With "compare ID" prints how
/// copy ID differs from the local copy ("- ": only in copy ID, "+ ": only in the local copy). With
/// "restore ID" makes copy ID the local copy.
ExitStatus HistoryOfCatalogue(Console& console, const CatalogueId& id, const Arguments& arguments);

/// Returns the bytes of FILE ("-": standard input); nothing, after a message, on a read error.
std::optional<std::string> ReadFileOperand(Console& console, const std::string& file);

}  // namespace zek::cli
