#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "findings/Findings.h"

namespace zek::cli {

/// Reads the catalogues of time controls, each catalogue only once.
class ControlReader {
 public:
  explicit ControlReader(Console& console) : console_(console) {}

  /// Returns nothing, after a message, if a catalogue could not be read. In local mode a local copy
  /// that is missing reads as empty. Lines that could not be read are named on standard error.
  std::optional<ControlTables> Read(std::size_t node);

  /// False if a line could not be read or a local copy is missing.
  bool Complete() const { return complete_; }
  ExitStatus Status() const { return complete_ ? kDone : kFailed; }

  /// True if all copies of the control that was read last were there.
  bool HadAllCopies() const { return hadAllCopies_; }

 private:
  const CatalogueContent* Content(const CatalogueId& id);
  void NameUnread(const CatalogueId& id, const std::vector<std::string>& lines);

  Console& console_;
  std::map<std::string, std::optional<CatalogueContent>> contents_;  // by local file
  std::map<std::string, bool> named_;                                // by catalogue and line
  bool complete_ = true;
  bool hadAllCopies_ = true;
};

/// Returns the time controls that operands name, by their place in the tree: controls, and all
/// those of controllers. Without operands these are all of the plant. Returns nothing, after a
/// message, for an unknown name.
std::optional<std::set<std::size_t>> ControlOperands(Console& console,
                                                     const std::vector<std::string>& names);

/// Returns the day of --today, without it the present one; nothing, after a message, if it is none.
std::optional<DayNumber> TodayFor(Console& console, const Arguments& arguments);

/// Returns the time control named by an operand; empty, after a message, if it is unknown.
std::optional<std::size_t> ControlOperand(Console& console, const std::string& name);

}  // namespace zek::cli
