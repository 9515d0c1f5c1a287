#include <chrono>
#include <ctime>

#include "system/LocalTime.h"

namespace zek {

LocalTime SystemTime() {
  constexpr int firstYear = 1900;
  using namespace std::chrono;
  const auto sinceEpoch = floor<milliseconds>(system_clock::now()).time_since_epoch();
  const std::time_t now = floor<seconds>(sinceEpoch).count();
  // Safe: only the main thread calls it, and the result is copied at once.
  const std::tm* const local = std::localtime(&now);  // NOLINT(concurrency-mt-unsafe)
  if (local == nullptr) return {};
  return {local->tm_year + firstYear,
          local->tm_mon + 1,
          local->tm_mday,
          local->tm_hour,
          local->tm_min,
          local->tm_sec,
          static_cast<int>(sinceEpoch.count() - now * 1000)};
}

}  // namespace zek
