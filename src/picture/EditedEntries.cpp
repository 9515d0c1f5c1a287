#include "picture/EditedEntries.h"

#include <algorithm>
#include <utility>

#include "picture/EntryLines.h"

namespace zek {

void PutWeekdays(Schedule& schedule, const WeekdayTable& edited) {
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      const WeekdayRow& now = edited.days.at(day).at(row);
      if (now != schedule.weekdays.days.at(day).at(row))
        schedule.weekdayLines.at(day).at(row) = NumberOfPlace({day, row});
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
      next.push_back({now, NumberOfPlace({0, row})});
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
