#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "formats/BuiltLines.h"
#include "formats/LineOwner.h"
#include "formats/WeekdayTable.h"

namespace zek {

/// The text form of a weekday catalogue: numbered lines, one for a switch row of a day or a range
/// of days, with fields separated by "!". Columns count from 1.
///
/// | Layout of ordinary time controls          | Layout of "PLT" time controls             |
/// |-------------------------------------------|-------------------------------------------|
/// | 1-5    line number, right-aligned         | 2-5    line number, left-aligned          |
/// | 7      "!"                                | 7-31   day key or range                   |
/// | 8-19   name, the first 12 characters      | 32     "!"                                |
/// | 20     "!"                                | 33-45  times                              |
/// | 21-33  day key or range (MO, SD1..SD7)    | 46     "!"                                |
/// | 34     "!"                                | 47-52  start value                        |
/// | 35-59  start or start..stop (07:00..16:30)|                                           |
/// | 60     "!"                                | No name, see `WeekdayOwners`.             |
/// | 61-69  start value, left-aligned          | No stop value: it reads as none.          |
/// | 70     "!"                                |                                           |
/// | 71-    stop value, "." for none           |                                           |
///
/// Line 1000 of TSC1 and line 701 of PLT7, from column 1 on:
///  " 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17"
///  " 701  MO..FR                   !07:00..16:30 !21    "

/// A line that was not read, or the lines that belong to nobody.
struct RefusedLine {
  /// text::kDayUnknown, text::kLineIncomplete, text::kDayFull, or text::kLinesOwnerless.
  std::int32_t text = 0;
  std::string line;  // the first one of several
  std::size_t lines = 1;

  bool operator==(const RefusedLine&) const = default;
};

/// The number of the line that each row of a weekday table came from; 0 for none.
using WeekdayLineNumbers = std::array<std::array<int, kWeekdayRows>, kWeekdayDays>;

struct WeekdayReading {
  WeekdayTable table;
  WeekdayLineNumbers lineNumbers{};
  std::vector<RefusedLine> refused;  // in the order of the lines, the lines of nobody last
  /// The owner's lines that `table` does not contain: those refused, all after an unknown day or a
  /// full day, and lines with another name in a catalogue that only the owner has.
  std::size_t linesLost = 0;
  std::vector<std::string> unread;  // the same lines
};

/// Parses the owner's lines and passes over all others (see `WeekdayOwners`). An incomplete line is
/// refused; an unknown day or a 17th row for a day ends the reading. Text that is not a number
/// reads as 0, and a time beyond 24:00 as 24:00.
WeekdayReading ReadWeekday(std::span<const std::string> lines, const LineOwner& owner);

enum class BuildStart {
  Afresh,      // the new catalogue has only the table's lines
  FromBuffer,  // it also keeps the lines of others, except those with a "*"
};

/// Builds the catalogue that replaces the old one, `lines`. Equal rows of consecutive days (Monday
/// to Sunday, SD1 to SD7) become one line; lines are ordered by row, then by day. Numbers start at
/// `FirstLineNumber` for a "PLT" name, else at the number of the owner's first old line; no line
/// gets a number of another control's old line. A 202nd line, a line number or start value that
/// does not fit its columns, or a number beyond the block of a ZEK1's "PLT" control returns an
/// error and no lines.
BuiltLines BuildWeekday(const WeekdayTable& table, const LineOwner& owner,
                        std::span<const std::string> lines, BuildStart start,
                        char decimalSeparator);

/// Returns the owner's lines `own` with new numbers, as `BuildWeekday` gives them to lines that
/// replace those in `fetched`; the rest of each line stays. Returns the same errors.
BuiltLines NumberWeekday(std::span<const std::string> own, std::span<const std::string> fetched,
                         const LineOwner& owner);

}  // namespace zek
