#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "formats/CatalogueFields.h"

namespace zek {

inline constexpr std::size_t kWeekdayDays = 14;  // Monday to Sunday, then SD1 to SD7
inline constexpr std::size_t kWeekdayRows = 16;  // switch rows per day
inline constexpr std::size_t kDaysOfType = 7;    // days 0 to 6 are type 0, days 7 to 13 type 1
inline constexpr std::int16_t kNoTime = -1;

/// One switch row of a day. Times are minutes after midnight, 0 to `kMinutesOfDay`.
struct WeekdayRow {
  std::int16_t start = kNoTime;
  std::int16_t stop = kNoTime;  // `kNoTime` in a used row: it switches on and has no interval
  float valueOn = 0;
  float valueOff = kNoValue;

  /// A row without a start time is empty, whatever its other fields are: it is not written.
  bool Used() const { return start != kNoTime; }

  bool operator==(const WeekdayRow&) const = default;
};

/// The weekday catalogue of one time control.
struct WeekdayTable {
  std::array<std::array<WeekdayRow, kWeekdayRows>, kWeekdayDays> days;

  void Clear() { *this = {}; }

  /// Counts the used rows of the seven days of `type` (0 Monday to Sunday, 1 SD1 to SD7) together.
  std::size_t UsedRows(std::size_t type) const {
    std::size_t used = 0;
    for (std::size_t day = type * kDaysOfType; day < (type + 1) * kDaysOfType; ++day) {
      used += static_cast<std::size_t>(
          std::count_if(days[day].begin(), days[day].end(), [](auto& row) { return row.Used(); }));
    }
    return used;
  }

  bool operator==(const WeekdayTable&) const = default;
};

}  // namespace zek
