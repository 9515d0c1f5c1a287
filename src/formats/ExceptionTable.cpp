#include "formats/ExceptionTable.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zek {
namespace {

using std::chrono::days;
using std::chrono::minutes;
using std::chrono::sys_days;

constexpr double kNumberLimit = 9999;
constexpr int kFirstYear = 100;  // years below have two digits
constexpr sys_days kDayZero =
    std::chrono::year(1899) / std::chrono::December / std::chrono::day(30);

int Whole(double number) {
  return static_cast<int>(std::nearbyint(std::clamp(number, -kNumberLimit, kNumberLimit)));
}

int FullYear(int year) {
  if (year < 0 || year >= kFirstYear) return std::max(year, kFirstYear);
  return year < 30 ? 2000 + year : 1900 + year;
}

}  // namespace

Moment DateMoment(double year, double month, double day) {
  const auto ofYear = std::chrono::year(FullYear(Whole(year)));
  const auto ofMonth = std::chrono::month(static_cast<unsigned>(std::clamp(Whole(month), 1, 12)));
  const sys_days date = sys_days(ofYear / ofMonth / 1) + days(Whole(day) - 1);
  return minutes(date - kDayZero).count();
}

Moment TimeMoment(double hours, double minutes) { return Whole(hours) * 60 + Whole(minutes); }

DateParts DateOf(Moment moment) {
  const days sinceZero = std::chrono::floor<days>(minutes(moment));
  const std::chrono::year_month_day date(kDayZero + sinceZero);
  return {int(date.year()), static_cast<int>(unsigned(date.month())),
          static_cast<int>(unsigned(date.day()))};
}

int TimeOfDay(Moment moment) {
  const int time = static_cast<int>(moment % kMinutesOfDay);
  return time < 0 ? time + kMinutesOfDay : time;
}

bool SameExceptions::operator()(const ExceptionTable& left, const ExceptionTable& right) const {
  const auto same = [](const OvcRow& one, const OvcRow& other) {
    return one == other || (!one.used && !other.used);
  };
  return std::equal(left.rows.begin(), left.rows.end(), right.rows.begin(), same);
}

}  // namespace zek
