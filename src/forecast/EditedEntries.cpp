#include "forecast/EditedEntries.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace zek {
namespace {

constexpr int kFirst = std::numeric_limits<int>::min();  // the others follow in the order of cells
// Enough for the place of any entry, since a date may be there several times.
constexpr DayNumber kDatePlaces = kCalendarEntries;

std::size_t Place(int number) { return static_cast<std::size_t>(number - kFirst); }

}  // namespace

int NumberOfCell(const WeekdayCell& cell) {
  return kFirst + static_cast<int>(cell.row * kWeekdayDays + cell.day);
}

WeekdayCell CellOfNumber(int number) {
  return {Place(number) % kWeekdayDays, Place(number) / kWeekdayDays % kWeekdayRows};
}

int NumberOfException(std::size_t row) { return kFirst + static_cast<int>(row); }

std::size_t ExceptionOfNumber(int number) { return Place(number) % kExceptionRows; }

DayNumber DateOfNumber(int number) { return (DayNumber{number} - kFirst) / kDatePlaces; }

WeekdayLineNumbers OwnNumbers(const WeekdayTable& table) {
  WeekdayLineNumbers numbers{};
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    for (std::size_t day = 0; day < kWeekdayDays; ++day) {
      const bool first = day % kDaysOfType == 0;
      const bool same = !first && table.days.at(day).at(row) == table.days.at(day - 1).at(row);
      numbers.at(day).at(row) = same ? numbers.at(day - 1).at(row) : NumberOfCell({day, row});
    }
  }
  return numbers;
}

std::vector<ExceptionLine> OwnNumbers(const ExceptionTable& table) {
  std::vector<ExceptionLine> lines;
  for (std::size_t row = 0; row < kExceptionRows; ++row) {
    if (table.rows.at(row).used) lines.push_back({table.rows.at(row), NumberOfException(row)});
  }
  return lines;
}

std::vector<DatedType> OwnNumbers(CalendarTable table) {
  table.Sort();
  std::vector<DatedType> dates = DatesOf(table);
  for (std::size_t at = 0; at < dates.size(); ++at) {
    DatedType& date = dates[at];
    const bool follows =
        at > 0 && dates[at - 1].type == date.type && dates[at - 1].day + 1 == date.day;
    date.line =
        follows ? dates[at - 1].line
                : static_cast<int>(kFirst + date.day * kDatePlaces + static_cast<DayNumber>(at));
  }
  return dates;
}

void PutWeekdays(Schedule& schedule, const WeekdayTable& edited) {
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      const WeekdayRow& now = edited.days.at(day).at(row);
      if (now != schedule.weekdays.days.at(day).at(row))
        schedule.weekdayLines.at(day).at(row) = NumberOfCell({day, row});
    }
  }
  schedule.weekdays = edited;
}

// The table is sent in its own order; as long as nothing changes, the order of the lines holds.
void PutExceptions(Schedule& schedule, const ExceptionTable& edited) {
  std::vector<ExceptionLine> left = schedule.exceptions;
  std::vector<ExceptionLine> next;
  bool changed = false;
  for (std::size_t row = 0; row < kExceptionRows; ++row) {
    const OvcRow& now = edited.rows.at(row);
    if (!now.used) continue;
    const auto found = std::find_if(left.begin(), left.end(),
                                    [&now](const ExceptionLine& line) { return line.row == now; });
    if (found == left.end()) {
      changed = true;
      next.push_back({now, NumberOfException(row)});
    } else {
      next.push_back(*found);
      left.erase(found);
    }
  }
  if (changed || !left.empty()) schedule.exceptions = std::move(next);
}

void PutCalendar(Schedule& schedule, const CalendarTable& edited) {
  schedule.calendar = DatesOf(edited);
}

}  // namespace zek
