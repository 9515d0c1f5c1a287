#include "formats/SwedishHolidays.h"

#include <algorithm>

#include "formats/ExceptionTable.h"

namespace zek {
namespace {

constexpr Moment kDay = kMinutesOfDay;
constexpr int kFirstOfSummerRules = 2005;  // 6 June is public from then on, Whit Monday no more

// The Gregorian computus.
Moment EasterOf(int year) {
  const int golden = year % 19;
  const int century = year / 100;
  const int epact = (century - century / 4 - (8 * century + 13) / 25 + 19 * golden + 15) % 30;
  const int moon = epact - epact / 28 * (1 - 29 / (epact + 1) * ((21 - golden) / 11));
  const int weekday = (year + year / 4 + moon + 2 - century + century / 4) % 7;
  const int day = moon - weekday;  // after 28 March
  return DateMoment(year, 3, 28) + day * kDay;
}

// Returns the first Saturday from a day on.
Moment SaturdayFrom(int year, int month, int day) {
  constexpr Moment week = 7;
  const Moment from = DateMoment(year, month, day);  // day 0 was a Saturday
  return from + (week - from / kDay % week) % week * kDay;
}

CalendarDate DateAt(Moment moment) {
  const DateParts parts = DateOf(moment);
  return {parts.year, parts.month - 1, parts.day};
}

bool Earlier(const Holiday& one, const Holiday& other) {
  return PackDate(one.date, 0) < PackDate(other.date, 0);
}

}  // namespace

std::vector<Holiday> SwedishHolidays(int year) {
  std::vector<Holiday> holidays;
  const auto add = [&holidays](Moment moment, std::string_view name, bool isPublic = true) {
    holidays.push_back({DateAt(moment), name, isPublic});
  };
  const Moment easter = EasterOf(year);
  const Moment midsummer = SaturdayFrom(year, 6, 20);
  add(DateMoment(year, 1, 1), "Nyårsdagen");
  add(DateMoment(year, 1, 6), "Trettondedag jul");
  add(easter - 2 * kDay, "Långfredagen");
  add(easter, "Påskdagen");
  add(easter + kDay, "Annandag påsk");
  add(DateMoment(year, 5, 1), "Första maj");
  add(easter + 39 * kDay, "Kristi himmelsfärdsdag");
  add(easter + 49 * kDay, "Pingstdagen");
  if (year < kFirstOfSummerRules) add(easter + 50 * kDay, "Annandag pingst");
  if (year >= kFirstOfSummerRules) add(DateMoment(year, 6, 6), "Sveriges nationaldag");
  add(midsummer - kDay, "Midsommarafton", false);
  add(midsummer, "Midsommardagen");
  add(SaturdayFrom(year, 10, 31), "Alla helgons dag");
  add(DateMoment(year, 12, 24), "Julafton", false);
  add(DateMoment(year, 12, 25), "Juldagen");
  add(DateMoment(year, 12, 26), "Annandag jul");
  add(DateMoment(year, 12, 31), "Nyårsafton", false);
  std::stable_sort(holidays.begin(), holidays.end(), Earlier);
  return holidays;
}

bool IsSwedishHoliday(const CalendarDate& date) {
  if (!IsKnownYear(date.year)) return false;
  const std::vector<Holiday> holidays = SwedishHolidays(date.year);
  return std::any_of(holidays.begin(), holidays.end(), [&date](const Holiday& holiday) {
    return holiday.isPublic && holiday.date == date;
  });
}

}  // namespace zek
