#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zek {

/// Date and time of day in the local time zone.
struct LocalTime {
  int year = 0;   // four digits
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;   // 0 to 23
  int minute = 0;
  int second = 0;
  int millisecond = 0;

  bool operator==(const LocalTime&) const = default;
};

/// Reads the system's clock.
LocalTime SystemTime();

/// Returns "2026-11-22 08:30:00".
std::string DateAndTime(const LocalTime& time);

/// Returns such a text without the seconds.
std::string ToTheMinute(std::string_view dateAndTime);

/// Returns "2026-11-22 08:30:00.250".
std::string DateAndMilliseconds(const LocalTime& time);

/// Returns the seconds from one time to another; a change to or from summer time counts.
std::int64_t SecondsBetween(const LocalTime& from, const LocalTime& to);

/// The clock of a session: the system's or a test's.
using Clock = std::function<LocalTime()>;

}  // namespace zek
