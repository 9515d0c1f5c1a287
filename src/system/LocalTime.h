#pragma once

#include <functional>

namespace zek {

/// Date and time of day as the clock on the wall shows them.
struct LocalTime {
  int year = 0;   // four digits
  int month = 0;  // 1 to 12
  int day = 0;    // 1 to 31
  int hour = 0;   // 0 to 23
  int minute = 0;
  int second = 0;
};

/// The system's clock, in its time zone.
LocalTime SystemTime();

/// Where a session gets its time from: the system, or a test.
using Clock = std::function<LocalTime()>;

}  // namespace zek
