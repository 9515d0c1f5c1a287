#pragma once

#include <functional>

namespace zek {

/// Date and time of day in the local time zone.
struct LocalTime {
  int year = 0;   // four digits
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;   // 0 to 23
  int minute = 0;
  int second = 0;
};

/// Reads the system's clock.
LocalTime SystemTime();

/// The clock of a session: the system's or a test's.
using Clock = std::function<LocalTime()>;

}  // namespace zek
