#pragma once

#include <cstddef>
#include <string>

#include "formats/CatalogueLine.h"

namespace zek {

inline constexpr int kMinutesOfDay = 1440;     // 24:00, the end of the day
inline constexpr std::size_t kTimeLength = 5;  // "07:05"

/// Writes minutes after midnight, 0 to `kMinutesOfDay`, as "HH:MM"; returns the column behind.
inline std::size_t PutTime(std::string& line, std::size_t column, int minutes) {
  PutTwoDigits(line, column, minutes / 60);
  line[column + 2] = ':';
  return PutTwoDigits(line, column + 3, minutes % 60);
}

/// The same as a text of its own.
inline std::string ClockText(int minutes) {
  std::string text(kTimeLength, ' ');
  PutTime(text, 0, minutes);
  return text;
}

}  // namespace zek
