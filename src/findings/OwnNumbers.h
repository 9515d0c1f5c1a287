#pragma once

#include <cstddef>
#include <vector>

#include "forecast/Schedule.h"
#include "formats/CalendarTable.h"
#include "formats/ExceptionTable.h"
#include "formats/WeekdayTable.h"

namespace zek {

// Numbers for the entries of tables that are edited, which have no lines yet. They are negative,
// unlike a line's, and each tells the first cell of its entry, so that a finding leads there.

/// Gives equal rows of consecutive days one number, because they become one line.
WeekdayLineNumbers OwnNumbers(const WeekdayTable& table);
/// In the order of the rows.
std::vector<ExceptionLine> OwnNumbers(const ExceptionTable& table);
/// Sorted; gives consecutive dates of one type one number, for the same reason.
std::vector<DatedType> OwnNumbers(CalendarTable table);

/// A cell of the weekday table.
struct WeekdayCell {
  std::size_t day = 0;
  std::size_t row = 0;
};

int NumberOfCell(const WeekdayCell& cell);
WeekdayCell CellOfNumber(int number);
std::size_t ExceptionOfNumber(int number);
DayNumber DateOfNumber(int number);

}  // namespace zek
