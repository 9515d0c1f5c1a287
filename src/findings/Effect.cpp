#include "findings/Effect.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "forecast/Forecast.h"

namespace zek {
namespace {

// Ten years of the calendar from `today` on; 29 February becomes 1 March.
Moment TenYearsAfter(DayNumber today) {
  const DateParts date = DateOf(StartOf(today));
  return DateMoment(date.year + 10, date.month, date.day);
}

// The times that have to be compared: a stretch without dated entries repeats every week as soon as
// its first week is over.
std::vector<std::pair<Moment, Moment>> TimesToCompare(const Schedule& schedule, DayNumber today) {
  constexpr DayNumber enoughDays = 28;
  const Moment from = StartOf(today);
  const Moment to = TenYearsAfter(today);
  std::vector<Moment> begins = {from};
  for (const DatedType& dated : schedule.calendar) begins.push_back(StartOf(dated.day));
  for (const auto& [row, line] : schedule.exceptions) {
    begins.push_back(row.start);
    begins.push_back(StopOf(row).value_or(row.start));
  }
  std::sort(begins.begin(), begins.end());
  std::vector<std::pair<Moment, Moment>> times;
  for (const Moment begin : begins) {
    const Moment end = std::min(begin + StartOf(enoughDays), to);
    if (end <= from || begin >= to) continue;
    if (!times.empty() && begin <= times.back().second) {
      times.back().second = end;
    } else {
      times.emplace_back(std::max(begin, from), end);
    }
  }
  return times;
}

bool Differ(const Forecast& one, const Forecast& other, Moment from, Moment to) {
  for (Moment at = from; at < to;) {
    if (one.At(at).value != other.At(at).value) return true;
    at = std::min(one.NextEvent(at).value_or(to), other.NextEvent(at).value_or(to));
  }
  return false;
}

}  // namespace

Schedule WithoutRow(Schedule schedule, int line) {
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      if (schedule.weekdayLines.at(day).at(row) == line)
        schedule.weekdays.days.at(day).at(row) = {};
    }
  }
  return schedule;
}

Schedule WithoutException(Schedule schedule, int line) {
  std::erase_if(schedule.exceptions, [line](const auto& each) { return each.number == line; });
  return schedule;
}

Schedule WithoutDates(Schedule schedule, int line) {
  std::erase_if(schedule.calendar, [line](const auto& each) { return each.line == line; });
  return schedule;
}

bool HaveDifferentValues(const Schedule& with, const Schedule& without, DayNumber today) {
  const auto times = TimesToCompare(with, today);
  const std::vector<Rule> variants = Rule::Variants();
  return std::any_of(variants.begin(), variants.end(), [&](const Rule& rule) {
    const Forecast one(with, rule);
    const Forecast other(without, rule);
    return std::any_of(times.begin(), times.end(), [&](const auto& time) {
      return Differ(one, other, time.first, time.second);
    });
  });
}

}  // namespace zek
