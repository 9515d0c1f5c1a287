#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/StartSession.h"
#include "catalogue/Catalogue.h"

namespace zek::cli {

/// The action of "history" that sends something.
inline constexpr const char* kUndoAction = "undo";

/// The command line: options of the program, then a command with its operands and options.
struct Arguments {
  std::optional<std::string> dir;      // --dir, UTF-8
  std::optional<std::string> ini;      // --ini
  std::optional<std::string> session;  // --session: the file of the log
  std::string command;
  std::vector<std::string> operands;  // UTF-8
  bool local = false;                 // --local of a command
  bool noSend = false;                // put --no-send
  bool dryRun = false;                // put --dry-run
  bool rebuild = false;               // check --rebuild
  std::vector<std::string> rules;     // --rule: switches of the assumed rule
  std::string observed;               // explain --observed
  std::string batch;                  // explain --batch: a file
  std::string svg;                    // timeline --svg: a file
  std::string today;                  // lint and report --today: a date
  std::string out;                    // report and plan --out: a file
  std::string year;                   // report --year
  bool json = false;                  // lint --json
  bool exitCode = false;              // lint --exit-code, plan --exit-code
  std::string nodes;                  // plan --nodes: a file of nodes
  std::string revert;                 // plan --revert: the plan to take back
  std::string dayType;                // import --as: a day type, such as SD1
  std::string from;                   // import --from and --to: dates
  std::string to;
  bool write = false;     // import --write
  bool eventLog = false;  // export --eventlog
  std::string help;       // with --help: the text to print, else ""
  std::string error;      // error in the command line, or ""

  /// True if the command may contact a controller; but `import` does only without a local copy.
  bool Contacts() const;
};

/// Parses the arguments, which exclude the program's name.
Arguments ParseArguments(const std::vector<std::string>& arguments);

/// Parses "wdc", "sdc" or "ovc", case-insensitive; nothing for other words.
std::optional<Catalogue> CatalogueOf(const std::string& kind);

}  // namespace zek::cli
