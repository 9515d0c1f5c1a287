#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/CalendarTable.h"
#include "formats/ExceptionTable.h"
#include "formats/WeekdayTable.h"

namespace zek {

/// Gives dates of the calendar a day type; `kNoDayType` removes them.
struct CalendarChange {
  CalendarDate first;
  CalendarDate last;
  std::int16_t type = kNoDayType;
};

/// Adds an exception, or removes those that begin when `row` begins.
struct ExceptionChange {
  bool add = false;
  OvcRow row;
};

/// Adds a row to days, or removes their rows that begin when `row` begins.
struct WeekdayChange {
  bool add = false;
  std::vector<std::size_t> days;  // 0 Monday to 13 SD7, in this order, each once
  WeekdayRow row;
};

using ListedChange = std::variant<CalendarChange, ExceptionChange, WeekdayChange>;

/// The catalogue that a change is about.
Catalogue KindOf(const ListedChange& change);

/// The first line of a change list that could not be read.
struct BadChange {
  std::size_t line = 0;   // from 1
  std::int32_t text = 0;  // one of text::kPlanBadChange to text::kPlanBackwards
  std::string value;      // what was written, for `%1`
};

struct ChangeList {
  std::vector<ListedChange> changes;  // in the order of the lines
  std::optional<BadChange> bad;
};

/// Parses a change list, one change a line, with fields between blanks:
///   + sdc DATE[..DATE] TYPE                       - sdc DATE[..DATE]
///   + ovc START STOP VALUE STOPVALUE              - ovc START
///   + wdc DAYS HH:MM[..HH:MM] VALUE [STOPVALUE]   - wdc DAYS HH:MM
/// DATE is 2026-12-24, START and STOP are 2026-12-24T08:00, TYPE is MO to SU or SD1 to SD7, DAYS
/// are such keys, ranges MO..FR, or several with commas. "-" is no stop and no value. Empty lines
/// and lines that begin with "#" say nothing. Reading ends at the first line that is wrong.
ChangeList ReadChangeList(std::string_view text);

}  // namespace zek
