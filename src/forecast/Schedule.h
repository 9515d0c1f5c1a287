#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/CalendarText.h"
#include "formats/ExceptionText.h"
#include "formats/WeekdayText.h"

namespace zek {

/// Days since 1899-12-30, the zero of `Moment`.
using DayNumber = std::int64_t;

constexpr Moment StartOf(DayNumber day) { return day * kMinutesOfDay; }
inline DayNumber DayOf(Moment moment) {
  return (moment - TimeOfDay(moment)) / kMinutesOfDay;  // rounds down, also below 0
}
/// Returns 0 for a Monday to 6 for a Sunday.
inline std::size_t WeekdayOf(DayNumber day) {
  constexpr DayNumber saturday = 5;  // day 0
  constexpr DayNumber week = 7;
  return static_cast<std::size_t>(((day + saturday) % week + week) % week);
}

/// A value to control with; nothing where a controller is told none.
using MaybeValue = std::optional<float>;

/// A date with another day type than its weekday's.
struct DatedType {
  DayNumber day = 0;
  std::size_t type = 0;  // 0 Monday to 6 Sunday, 7 to 13 SD1 to SD7
  int line = 0;          // the number of its line
};

/// What the three catalogues say about one time control. Every entry has the number of the
/// catalogue line it came from; entries with the same number are told apart only by their kind.
struct Schedule {
  WeekdayTable weekdays;
  WeekdayLineNumbers weekdayLines{};
  std::vector<DatedType> calendar;        // of two entries of a date the first one counts
  std::vector<ExceptionLine> exceptions;  // of two, the later one may count more
  MaybeValue standard;                    // the ".DFV" value
};

/// Makes a schedule of what was read. The default value is that of the weekday catalogue; if that
/// is no number, that of the exceptions.
Schedule ScheduleOf(const WeekdayReading& weekdays, const CalendarReading& calendar,
                    const ExceptionReading& exceptions,
                    const std::optional<std::string>& weekdayStandard,
                    const std::optional<std::string>& exceptionStandard);

/// Returns the dates of a calendar, without numbers of lines.
std::vector<DatedType> DatesOf(const CalendarTable& calendar);

/// Returns the number in a text; nothing if it is none. "," and "." are both decimal separators.
MaybeValue ValueIn(const std::string& text);

}  // namespace zek
