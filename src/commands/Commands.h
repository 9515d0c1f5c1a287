#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

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

/// Reads FILE into the editor's model of the node and prints its record lines, or with --rebuild
/// the lines that saving the unchanged model would send. A line that was not read ends it with
/// status 1; what was read up to there is printed all the same.
ExitStatus Check(Console& console, const CatalogueId& id, std::size_t node,
                 const Arguments& arguments);

/// Exports the kinds that the operands name, or all three, of every time control to files in
/// "Batch". Prints the names of the files; what could not be exported goes to standard error.
ExitStatus Export(Console& console, const Arguments& arguments);

/// Lists the earlier local copies of a catalogue, the newest first; or compares the one that ID
/// names with the local copy (lines only in it: "- ", only in the local copy: "+ "); or puts it in
/// the place of the local copy.
ExitStatus HistoryOfCatalogue(Console& console, const CatalogueId& id, const Arguments& arguments);

/// The bytes of FILE ("-" = standard input); nothing when it can't be read, which was told.
std::optional<std::string> ReadFileOperand(Console& console, const std::string& file);

}  // namespace zek::cli
