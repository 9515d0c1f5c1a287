#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "formats/BuiltLines.h"
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
/// | 60     "!"                                | No name: every line is the time control's.|
/// | 61-69  start value, left-aligned          | No stop value: it reads as none.          |
/// | 70     "!"                                |                                           |
/// | 71-    stop value, "." for none           |                                           |
///
/// Line 1000 of TSC1 and line 701 of PLT7, from column 1 on:
///  " 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17"
///  " 701  MO..FR                   !07:00..16:30 !21    "

/// The line at which parsing stopped.
struct RefusedLine {
  std::int32_t text = 0;  // text::kDayUnknown, text::kLineIncomplete or text::kDayFull
  std::string line;

  bool operator==(const RefusedLine&) const = default;
};

struct WeekdayReading {
  WeekdayTable table;
  std::optional<RefusedLine> refused;
  /// The lines of this time control that `table` does not contain: the refused one and all after
  /// it.
  std::size_t linesLost = 0;
  /// The first line number when the table is written: `FirstLineNumber` for a "PLT" name, else the
  /// number of the time control's first line (1000 if it has no lines).
  int nextLineNumber = 0;
};

/// Parses the lines of the time control `name`. A name field is compared with case and without the
/// blanks around it; an empty name reads the lines without one. Text that is not a number reads as
/// 0, and a time beyond 24:00 as 24:00.
WeekdayReading ReadWeekday(std::span<const std::string> lines, std::string_view name);

enum class BuildStart {
  Afresh,      // the new catalogue has only the table's lines
  FromBuffer,  // it also keeps the old lines, except those with this name or a "*"
};

/// Builds the catalogue that replaces the old one, `lines`. Equal rows of consecutive days (Monday
/// to Sunday, SD1 to SD7) become one line; lines are ordered by row, then by day. A 202nd line, or
/// a line number or start value that does not fit its columns, returns an error and no lines.
BuiltLines BuildWeekday(const WeekdayTable& table, std::string_view name,
                        std::span<const std::string> lines, BuildStart start,
                        char decimalSeparator);

}  // namespace zek
