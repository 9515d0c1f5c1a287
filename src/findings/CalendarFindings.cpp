#include <algorithm>
#include <map>

#include "findings/FindingList.h"
#include "forecast/MomentText.h"
#include "formats/ExceptionCells.h"
#include "formats/SwedishHolidays.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using enum FindingKind;

std::string DayText(DayNumber day) { return DateText(StartOf(day)); }

void CheckDoubles(FindingList& list, const Schedule& schedule) {
  std::map<DayNumber, DatedType> first;
  for (const DatedType& dated : schedule.calendar) {
    const auto [found, isNew] = first.emplace(dated.day, dated);
    if (isNew) continue;
    const DatedType& counts = found->second;
    list.Add(counts.type == dated.type ? DateTwice : DateTwoTypes, PlaceOf("sdc", dated.line),
             {DayText(dated.day), std::string(kDayKeys.at(counts.type)),
              std::string(kDayKeys.at(dated.type))});
  }
}

void CheckEnds(FindingList& list, const Schedule& schedule, DayNumber today) {
  constexpr DayNumber soon = 90;
  std::map<int, DayNumber> lastOfLine;
  DayNumber last = 0;
  for (const DatedType& dated : schedule.calendar) {
    lastOfLine[dated.line] = std::max(lastOfLine[dated.line], dated.day);
    last = std::max(last, dated.day);
  }
  for (const auto& [line, day] : lastOfLine) {
    if (day < today) list.Add(DateOver, PlaceOf("sdc", line), {DayText(day), {}, {}});
  }
  if (!lastOfLine.empty() && last <= today + soon) {
    list.Add(CalendarEnds, "sdc", {DayText(last), {}, {}});
  }
}

// In the coming year; a Sunday needs no entry.
void CheckHolidays(FindingList& list, const Schedule& schedule, DayNumber today) {
  constexpr DayNumber year = 365;
  constexpr std::size_t sunday = 6;
  const int thisYear = DateOf(StartOf(today)).year;
  for (const int of : {thisYear, thisYear + 1}) {
    for (const Holiday& holiday : SwedishHolidays(of)) {
      const DayNumber day = DayOf(DateMoment(of, holiday.date.month + 1, holiday.date.day));
      if (!holiday.isPublic || WeekdayOf(day) == sunday) continue;
      const bool entered = std::any_of(schedule.calendar.begin(), schedule.calendar.end(),
                                       [day](const auto& each) { return each.day == day; });
      if (entered || day < today || day >= today + year) continue;
      list.Add(HolidayMissing, "sdc", {Windows1252FromUtf8(holiday.name), DayText(day), {}});
    }
  }
}

}  // namespace

void FindInCalendar(FindingList& list, const ControlTables& control,
                    const FindingContext& context) {
  CheckDoubles(list, control.schedule);
  CheckEnds(list, control.schedule, context.today);
  if (context.swedishHolidays) CheckHolidays(list, control.schedule, context.today);
  CheckFull(list, "sdc", control.calendar.table.Used().size(), kCalendarEntries);
}

}  // namespace zek
