#pragma once

#include <cstddef>
#include <vector>

#include "forecast/Schedule.h"
#include "formats/CalendarTable.h"
#include "formats/ExceptionTable.h"
#include "formats/WeekdayTable.h"

namespace zek {

// The entries of tables that are edited have no lines yet. In a schedule they have numbers of their
// own, below 0, unlike a line's. Each tells the first cell of its entry.

/// A cell of the weekday table.
struct WeekdayCell {
  std::size_t day = 0;
  std::size_t row = 0;
};

int NumberOfCell(const WeekdayCell& cell);
WeekdayCell CellOfNumber(int number);
int NumberOfException(std::size_t row);
std::size_t ExceptionOfNumber(int number);
DayNumber DateOfNumber(int number);

// Number all entries.

/// Gives equal rows of consecutive days one number, because they become one line.
WeekdayLineNumbers OwnNumbers(const WeekdayTable& table);
/// In the order of the rows.
std::vector<ExceptionLine> OwnNumbers(const ExceptionTable& table);
/// Sorted; gives consecutive dates of one type one number, for the same reason.
std::vector<DatedType> OwnNumbers(CalendarTable table);

// Put an edited table into the schedule of a catalogue as it was read. Weekday rows and exceptions
// that are as they were read keep the number of their line.

void PutWeekdays(Schedule& schedule, const WeekdayTable& edited);
void PutExceptions(Schedule& schedule, const ExceptionTable& edited);
void PutCalendar(Schedule& schedule, const CalendarTable& edited);

}  // namespace zek
