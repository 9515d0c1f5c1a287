#include "paste/DayCopy.h"

#include <algorithm>

namespace zek {
namespace {

bool Same(const EditedWeekdays& edited, const WeekdayCell& one, const WeekdayCell& other) {
  return edited.At(one) == edited.At(other) && edited.IsUnvalued(one) == edited.IsUnvalued(other);
}

void Put(EditedWeekdays& edited, const WeekdayCell& from, const WeekdayCell& to) {
  const bool unvalued = edited.IsUnvalued(from);
  edited.At(to) = edited.At(from);
  edited.unvalued.set(EditedWeekdays::Place(to), unvalued);
}

// False if the day is full. A row that is half entered is not free.
bool Add(EditedWeekdays& edited, const WeekdayCell& from, std::size_t day) {
  std::optional<std::size_t> free;
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    if (Same(edited, from, {day, row})) return true;
    if (!free && edited.At({day, row}) == WeekdayRow{}) free = row;
  }
  if (free) Put(edited, from, {day, *free});
  return free.has_value();
}

bool CopyTo(EditedWeekdays& edited, const WeekdayCell& from, std::size_t day, DayCopy what) {
  if (what == DayCopy::Row) return Add(edited, from, day);
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    const WeekdayCell each{from.day, row};
    if (what == DayCopy::WholeDay) {
      Put(edited, each, {day, row});
    } else if (edited.At(each).Used() && !Add(edited, each, day)) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::variant<EditedWeekdays, std::size_t> CopyToDays(EditedWeekdays edited, const WeekdayCell& from,
                                                     DaySet to, DayCopy what) {
  to.reset(from.day);
  for (std::size_t day = 0; day < kWeekdayDays; ++day)
    if (to.test(day) && !CopyTo(edited, from, day, what)) return day;
  return edited;
}

bool HasRows(const WeekdayTable& table, std::size_t day) {
  const auto& rows = table.days.at(day);
  return std::any_of(rows.begin(), rows.end(), [](const WeekdayRow& row) { return row.Used(); });
}

}  // namespace zek
