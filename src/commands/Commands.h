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
#include "settings/DataFolder.h"

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
  /// Tells if the system has sockets, without which no wait ends. For a command that may need them.
  std::function<bool()> hasSockets = [] { return true; };
};

/// The streams of a command that needs no session.
struct Streams {
  std::ostream& out;
  std::ostream& err;
};

/// Gives a data folder without settings those of an older folder in the operand, with its copies
/// and history, see `TakeOver`; without an operand those that came with the program.
ExitStatus TakeOverFolder(Files& files, const Folders& folders, const Arguments& arguments,
                          const Streams& streams);

/// Reads the password of the tag server from `in`, without showing it at a terminal, and replaces
/// the one in the settings file by it, encrypted. Only on Windows.
ExitStatus SetTagPassword(Files& files, const std::string& settingsFile, std::istream& in,
                          const Streams& streams);

/// Starts the session, with --local in local mode, and loads the topics. Returns an exit status,
/// after a message, if the program must end.
std::optional<ExitStatus> StartCommands(Console& console, const Arguments& arguments = {});

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
/// "restore ID" makes copy ID the local copy. With "undo" sends what the controller had before the
/// last sending.
ExitStatus HistoryOfCatalogue(Console& console, const CatalogueId& id, const Arguments& arguments);

/// Print what applies to a time control, see `Forecast`: on a stretch of time, with --svg also as a
/// picture; at a moment, with the reasons; next. The status is 1 if a line could not be read or, in
/// local mode, a local copy is missing; the answer is still printed.
ExitStatus PrintTimeline(Console& console, const Arguments& arguments);
ExitStatus Explain(Console& console, const Arguments& arguments);
ExitStatus PrintNext(Console& console, const Arguments& arguments);

/// Prints what in the catalogues is probably not meant, see `FindingsOf`: of the nodes in the
/// operands, or of the whole plant.
ExitStatus Lint(Console& console, const Arguments& arguments);

/// Writes the report of time controls to the file of --out, see `ReportOf`.
ExitStatus WriteReport(Console& console, const Arguments& arguments);

/// Plans one change of many catalogues into a file, or the way back of a plan, see `Planner`. The
/// status is 1 if a catalogue or a line of the change list is refused.
ExitStatus MakePlan(Console& console, const Arguments& arguments);

/// Applies a plan, see `Applier`. The status is 1 unless all catalogues are done.
ExitStatus ApplyPlan(Console& console, const Arguments& arguments);

/// Prints what the dates of a file change in a calendar and, with --write, changes the local copy.
/// The status is 1 if something was skipped; the rest is still imported.
ExitStatus Import(Console& console, const CatalogueId& id, const Arguments& arguments);

/// Prints the holidays of a country, one a line, by date.
ExitStatus PrintHolidays(Console& console, const Arguments& arguments);

/// Reads a catalogue as the settings say, in local mode from its local copy. Returns nothing, after
/// a message, if that failed.
std::optional<CatalogueContent> ReadCatalogue(Console& console, const CatalogueId& id);

/// Returns a year from 1990 to 2099; 0 for any other text.
int YearIn(const std::string& text);

/// Prints why a command is refused; returns `kWrongUsage`.
ExitStatus Refuse(Console& console, const std::string& why);

/// Returns the bytes of FILE ("-": standard input); nothing, after a message, on a read error. Of a
/// file with more than `largest` bytes only so many and one more may be read.
std::optional<std::string> ReadFileOperand(Console& console, const std::string& file,
                                           std::size_t largest = kLargestFile);

}  // namespace zek::cli
