#include "system/LocalTime.h"

#include <chrono>

#include "text/Numbers.h"

namespace zek {

std::string DateAndTime(const LocalTime& time) {
  const auto two = [](int number) { return ZeroPadded(number, 2); };
  return ZeroPadded(time.year, 4) + "-" + two(time.month) + "-" + two(time.day) + " " +
         two(time.hour) + ":" + two(time.minute) + ":" + two(time.second);
}

std::string ToTheMinute(std::string_view dateAndTime) {
  return std::string(dateAndTime.substr(0, std::string_view("2026-11-22 08:30").size()));
}

std::string DateAndMilliseconds(const LocalTime& time) {
  return DateAndTime(time) + "." + ZeroPadded(time.millisecond, 3);
}

std::int64_t SecondsBetween(const LocalTime& from, const LocalTime& to) {
  const auto seconds = [](const LocalTime& time) {
    using namespace std::chrono;
    const sys_days day{year(time.year) / month(static_cast<unsigned>(time.month)) /
                       std::chrono::day(static_cast<unsigned>(time.day))};
    return duration_cast<std::chrono::seconds>(day.time_since_epoch() + hours(time.hour) +
                                               minutes(time.minute))
               .count() +
           time.second;
  };
  return seconds(to) - seconds(from);
}

}  // namespace zek
