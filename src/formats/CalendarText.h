#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/BuiltLines.h"
#include "formats/CalendarTable.h"
#include "formats/Generation.h"
#include "settings/Settings.h"

namespace zek {

/// The text form of a special-day calendar: numbered lines, one for a date or a run of dates, with
/// fields separated by "!". Columns count from 1.
///
/// | Layout of ordinary time controls        | Layout of "PLT" time controls             |
/// |-----------------------------------------|-------------------------------------------|
/// | 1-5    line number, right-aligned       | 2-5    line number, left-aligned          |
/// | 7      "!"                              | 7-31   date or run                        |
/// | 8-59   date or run                      | 32     "!"                                |
/// | 60     "!"                              | 33-    day type                           |
/// | 61-    day type (MO to SU, SD1 to SD7)  |                                           |
///
/// A date is DD-MON-YY on a ZEK1 and DD-MON-YYYY on a ZEK2, a run is two dates joined by "..".
/// Line 1000 of a ZEK1 and line 701 of PLT7 on a ZEK2, from column 1 on:
///  " 1000 !24-DEC-26..26-DEC-26                                !SD1"
///  " 701  24-DEC-2026..26-DEC-2026 !SD1"

/// The years that a controller's dates can have.
struct CalendarYears {
  Generation generation = Generation::Zek1;
  int lastTwoDigitYear = 20;  // ZEK1: 00 to this mean 2000 and later, 94 to 99 mean 1994 to 1999
  int lastYear = 2030;        // ZEK2

  static constexpr int kFirst = 1994;

  int Last() const { return generation == Generation::Zek2 ? lastYear : 2000 + lastTwoDigitYear; }
  bool Has(int year) const { return year >= kFirst && year <= Last(); }
};

CalendarYears YearsOf(const Settings& settings, Generation generation);

/// A line that was not read, or only in part.
struct RefusedDates {
  /// text::kDatesWrong, text::kDayTypeUnknown or text::kCalendarCut.
  std::int32_t text = 0;
  std::string number;  // the line number as it was read
  std::string line;

  bool operator==(const RefusedDates&) const = default;
};

/// The layout of a calendar's lines and the number of the first one. All controls of a controller
/// share one calendar, which keeps both, whichever node it is opened from.
struct CalendarLayout {
  bool plt = false;
  int firstNumber = 0;

  bool operator==(const CalendarLayout&) const = default;
};

/// Returns the layout for a calendar without lines: that of the time control `name`, with the
/// number `FirstLineNumber`.
CalendarLayout EmptyCalendarLayout(std::string_view name);

struct CalendarReading {
  CalendarTable table;
  /// In the order of the lines. Of the lines that found the table full only the first is listed.
  std::vector<RefusedDates> refused;
  /// The lines that `table` does not contain completely: the refused ones and those with "*" as a
  /// date.
  std::size_t linesLost = 0;
  /// Number and layout of the first line with a number; nothing without one.
  std::optional<CalendarLayout> layout;
  std::vector<std::string> unread;                  // the refused lines
  std::array<int, kCalendarEntries> lineNumbers{};  // of each entry in use, the number of its line
};

/// Parses the lines of a calendar; `baseYear` is the first year shown. A line has the "PLT" layout
/// if there is text where its date would be, regardless of the control.
CalendarReading ReadCalendar(std::span<const std::string> lines, const CalendarYears& years,
                             int baseYear);

/// Builds the lines of a calendar in the order of dates, numbered one after the other. Consecutive
/// days of the same type become one line. A 202nd line, or a line number too wide for its columns,
/// returns an error and no lines.
BuiltLines BuildCalendar(CalendarTable table, const CalendarLayout& layout, Generation generation);

}  // namespace zek
