#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/ControlReader.h"
#include "commands/Commands.h"

namespace zek::cli {

/// Reads as the settings say; in local mode a local copy that is missing reads as empty. Lines that
/// could not be read are named on standard error.
ControlReader::Source SourceFor(Console& console);
inline ControlReader ReaderFor(Console& console) { return {console.proc, SourceFor(console)}; }

inline ExitStatus StatusOf(const ControlReader& reader) {
  return reader.Complete() ? kDone : kFailed;
}

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
