#include "findings/OwnNumbers.h"

#include <limits>

namespace zek {
namespace {

constexpr int kFirst = std::numeric_limits<int>::min();  // the others follow in the order of cells
// A date may be there several times.
constexpr DayNumber kDatePlaces = kCalendarEntries;

std::size_t Place(int number) { return static_cast<std::size_t>(number - kFirst); }

}  // namespace

int NumberOfCell(const WeekdayCell& cell) {
  return kFirst + static_cast<int>(cell.row * kWeekdayDays + cell.day);
}

WeekdayCell CellOfNumber(int number) {
  return {Place(number) % kWeekdayDays, Place(number) / kWeekdayDays % kWeekdayRows};
}

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
    if (table.rows.at(row).used)
      lines.push_back({table.rows.at(row), kFirst + static_cast<int>(row)});
  }
  return lines;
}

std::vector<DatedType> OwnNumbers(CalendarTable table) {
  table.Sort();
  std::vector<DatedType> dates = DatesOf(table);
  DayNumber again = 0;
  for (std::size_t at = 0; at < dates.size(); ++at) {
    DatedType& date = dates[at];
    const bool follows =
        at > 0 && dates[at - 1].type == date.type && dates[at - 1].day + 1 == date.day;
    again = at > 0 && dates[at - 1].day == date.day ? again + 1 : 0;
    date.line =
        follows ? dates[at - 1].line : static_cast<int>(kFirst + date.day * kDatePlaces + again);
  }
  return dates;
}

}  // namespace zek
