#pragma once

#include <bitset>
#include <cstddef>
#include <string>
#include <variant>

#include "editors/WeekdayEntry.h"

namespace zek {

/// What is copied from a day to other days.
enum class DayCopy {
  Row,       // one row, into the first free place
  Day,       // all used rows, into free places
  WholeDay,  // all rows, in place of the other days' own
};

using DaySet = std::bitset<kWeekdayDays>;

/// Copies `from`, or its day, to other days; a row that a day has already is not added again.
/// Returns the table, or the first day that has too few free places.
std::variant<EditedWeekdays, std::size_t> CopyToDays(EditedWeekdays edited, const WeekdayCell& from,
                                                     DaySet to, DayCopy what);

/// Whether there is anything to copy.
bool HasRows(const WeekdayTable& table, std::size_t day);

}  // namespace zek
