#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/CatalogueLine.h"
#include "formats/Generation.h"
#include "text/Numbers.h"

namespace zek {

/// Months in catalogue lines, January first.
inline constexpr std::string_view kMonthNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";

/// The month 0 to 11 whose three letters stand at a column of `text`; nothing for others.
inline std::optional<int> MonthAt(std::string_view text, std::size_t column) {
  const std::string_view name = FromColumn(text, column).substr(0, 3);
  for (int month = 0; month < 12 && name.size() == 3; ++month)
    if (kMonthNames.substr(static_cast<std::size_t>(month) * 3, 3) == name) return month;
  return std::nullopt;
}

/// Writes a date with the month 0 to 11; the year has its last two digits on a ZEK1, four on a
/// ZEK2. Returns the column behind.
inline std::size_t PutDate(std::string& line, std::size_t column, int year, int month, int day,
                           Generation generation) {
  PutTwoDigits(line, column, day);
  line[column + 2] = '-';
  Put(line, column + 3, kMonthNames.substr(static_cast<std::size_t>(month) * 3, 3));
  line[column + 6] = '-';
  column += 7;
  if (generation == Generation::Zek2) column = PutTwoDigits(line, column, year / 100);
  return PutTwoDigits(line, column, year % 100);
}

/// A date as "YYYY-MM-DD", with the month 1 to 12.
inline std::string IsoDate(int year, int month, int day) {
  return ZeroPadded(year, 4) + "-" + ZeroPadded(month, 2) + "-" + ZeroPadded(day, 2);
}

}  // namespace zek
