#include "system/LocalTime.h"

#include <ctime>

namespace zek {

LocalTime SystemTime() {
  constexpr int firstYear = 1900;
  const std::time_t now = std::time(nullptr);
  // Safe: the program has one thread, and the result is copied at once.
  const std::tm* const local = std::localtime(&now);  // NOLINT(concurrency-mt-unsafe)
  if (local == nullptr) return {};
  return {local->tm_year + firstYear,
          local->tm_mon + 1,
          local->tm_mday,
          local->tm_hour,
          local->tm_min,
          local->tm_sec};
}

}  // namespace zek
