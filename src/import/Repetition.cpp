#include "import/Repetition.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <span>

namespace zek {
namespace {

using std::chrono::sys_days;

struct Day {
  int month = 1;  // 1 to 12
  int day = 1;
  int ofYear = 1;
  int monthLength = 31;
  int yearLength = 365;
  int weekday = 1;  // 1 for Sunday
};

// The numbers of a part of a rule, up to libical's end mark.
template <class Numbers>
std::span<const short> Given(const Numbers& numbers) {
  const std::span<const short> all(numbers);
  const auto end = std::find(all.begin(), all.end(), static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX));
  return all.first(static_cast<std::size_t>(end - all.begin()));
}

// Whether a place from 1, or from the end on if negative, is wanted.
bool Fits(std::span<const short> wanted, int place, int length) {
  return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), [&](int each) {
           return each == place || each == place - length - 1;
         });
}

// Whether the day is, say, the second Monday of `length` days.
bool FitsWeekday(short wanted, int weekday, int place, int length) {
  const int nth = icalrecurrencetype_day_position(wanted);
  if (icalrecurrencetype_day_day_of_week(wanted) != weekday) return false;
  constexpr int week = 7;
  return nth == 0 || nth == (place - 1) / week + 1 || nth == -((length - place) / week + 1);
}

class Finder {
 public:
  Finder(const icalrecurrencetype& rule, const CalendarDate& start)
      : rule_(rule),
        start_(start),
        months_(Given(rule.by_month)),
        monthDays_(Given(rule.by_month_day)),
        yearDays_(Given(rule.by_year_day)),
        days_(Given(rule.by_day)),
        weeks_(Given(rule.by_week_no)),
        places_(Given(rule.by_set_pos)),
        monthly_(rule.freq == ICAL_MONTHLY_RECURRENCE),
        yearly_(rule.freq == ICAL_YEARLY_RECURRENCE) {
    for (const short place : places_) least_ = std::min<int>(least_, std::abs(place));
    if (places_.empty()) least_ = 1;
  }

  bool FindUntil(int lastYear) {
    for (int year = start_.year; year <= lastYear; ++year) {
      if (yearly_ && (year - start_.year) % rule_.interval != 0) continue;
      if (yearly_) found_ = 0;
      for (int month = 1; month <= 12; ++month)
        if (FindIn(year, month)) return true;
    }
    return false;
  }

 private:
  bool FindIn(int year, int month) {
    const int since = (year - start_.year) * 12 + month - 1 - start_.month;
    if (monthly_ && (since < 0 || since % rule_.interval != 0)) return false;
    if (monthly_) found_ = 0;
    if (!zek::Fits(months_, month, 12)) return false;
    const int length = MonthLength(year, month - 1);
    const auto first = sys_days(std::chrono::year(year) / month / 1);
    const auto newYear = sys_days(std::chrono::year(year) / 1 / 1);
    const auto firstOfYear = static_cast<int>((first - newYear).count());
    const auto firstWeekday = static_cast<int>(std::chrono::weekday(first).c_encoding());
    Day day{month, 1, 0, length, year % 4 == 0 ? 366 : 365, 0};
    for (; day.day <= length; ++day.day) {
      day.ofYear = firstOfYear + day.day;
      day.weekday = (firstWeekday + day.day - 1) % 7 + 1;
      if (!Fits(day)) continue;
      // Places are counted from the period's begin, also before the start.
      if (++found_ >= least_ && (year > start_.year || month > start_.month + 1 ||
                                 (month == start_.month + 1 && day.day >= start_.day)))
        return true;
    }
    return false;
  }

  bool Fits(const Day& day) const {
    if (!zek::Fits(monthDays_, day.day, day.monthLength)) return false;
    if (!zek::Fits(yearDays_, day.ofYear, day.yearLength)) return false;
    const bool ofStart = (monthly_ || yearly_) && monthDays_.empty() && yearDays_.empty() &&
                         days_.empty() && weeks_.empty();
    if (ofStart && day.day != start_.day) return false;
    if (ofStart && yearly_ && months_.empty() && day.month != start_.month + 1) return false;
    const bool inMonth = monthly_ || !months_.empty();
    return days_.empty() || std::any_of(days_.begin(), days_.end(), [&](short wanted) {
             return inMonth ? FitsWeekday(wanted, day.weekday, day.day, day.monthLength)
                            : FitsWeekday(wanted, day.weekday, day.ofYear, day.yearLength);
           });
  }

  const icalrecurrencetype& rule_;
  CalendarDate start_;
  std::span<const short> months_;
  std::span<const short> monthDays_;
  std::span<const short> yearDays_;
  std::span<const short> days_;
  std::span<const short> weeks_;
  std::span<const short> places_;
  bool monthly_;
  bool yearly_;
  int least_ = 1000;  // the smallest of the places that are wanted
  int found_ = 0;     // days in the period
};

}  // namespace

bool MayOccur(const icalrecurrencetype& rule, const CalendarDate& start) {
  constexpr int years = 120;
  Finder finder(rule, start);
  return rule.interval > 0 && finder.FindUntil(start.year + years);
}

}  // namespace zek
