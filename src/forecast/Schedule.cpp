#include "forecast/Schedule.h"

#include <algorithm>
#include <array>
#include <span>

#include "text/Numbers.h"

namespace zek {
namespace {

std::vector<DatedType> DatedTypes(const CalendarTable& table, std::span<const int> lines) {
  std::vector<DatedType> dated;
  const std::span<const CalendarEntry> used = table.Used();
  dated.reserve(used.size());
  for (std::size_t at = 0; at < used.size(); ++at) {
    const CalendarDate date = UnpackDate(used[at].date, table.BaseYear());
    const Moment start = DateMoment(date.year, date.month + 1, date.day);
    // A calendar may hold 29 February of 2100, which never comes.
    if (DateOf(start).day != date.day) continue;
    const int line = lines.empty() ? 0 : lines[at];
    dated.push_back({DayOf(start), static_cast<std::size_t>(used[at].type) - 1, line});
  }
  return dated;
}

}  // namespace

std::vector<DatedType> DatesOf(const CalendarTable& table) { return DatedTypes(table, {}); }

MaybeValue ValueIn(const std::string& text) {
  std::string number = text;
  std::replace(number.begin(), number.end(), ',', '.');
  return IsNumeric(number) ? MaybeValue(ToSingle(Val(number))) : std::nullopt;
}

Schedule ScheduleOf(const WeekdayReading& weekdays, const CalendarReading& calendar,
                    const ExceptionReading& exceptions,
                    const std::optional<std::string>& weekdayStandard,
                    const std::optional<std::string>& exceptionStandard) {
  MaybeValue standard = ValueIn(weekdayStandard.value_or(""));
  if (!standard) standard = ValueIn(exceptionStandard.value_or(""));
  return {weekdays.table, weekdays.lineNumbers, DatedTypes(calendar.table, calendar.lineNumbers),
          exceptions.inOrder, standard};
}

}  // namespace zek
