#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/CatalogueLine.h"
#include "formats/Generation.h"
#include "text/Numbers.h"

namespace zek {

/// The day keys of catalogue lines: Monday to Sunday, then the special days.
inline constexpr auto kDayKeys = std::to_array<std::string_view>(
    {"MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"});

/// Months in catalogue lines, January first.
inline constexpr std::string_view kMonthNames = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";

/// Returns the month 0 to 11 of the three letters at a column of `text`; nothing for other text.
inline std::optional<int> MonthAt(std::string_view text, std::size_t column) {
  const std::string_view name = FromColumn(text, column).substr(0, 3);
  for (int month = 0; month < 12 && name.size() == 3; ++month)
    if (kMonthNames.substr(static_cast<std::size_t>(month) * 3, 3) == name) return month;
  return std::nullopt;
}

/// Writes a date with the month 0 to 11; the year has two digits on a ZEK1, four on a ZEK2. Returns
/// the column after the date.
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

/// Returns a date as "YYYY-MM-DD", with the month 1 to 12.
inline std::string IsoDate(int year, int month, int day) {
  return ZeroPadded(year, 4) + "-" + ZeroPadded(month, 2) + "-" + ZeroPadded(day, 2);
}

inline constexpr int kMinutesOfDay = 1440;     // 24:00, the end of the day
inline constexpr std::size_t kTimeLength = 5;  // "07:05"

/// Writes minutes after midnight, 0 to `kMinutesOfDay`, as "HH:MM"; returns the column after them.
inline std::size_t PutTime(std::string& line, std::size_t column, int minutes) {
  PutTwoDigits(line, column, minutes / 60);
  line[column + 2] = ':';
  return PutTwoDigits(line, column + 3, minutes % 60);
}

/// Returns minutes after midnight as "HH:MM".
inline std::string ClockText(int minutes) {
  std::string text(kTimeLength, ' ');
  PutTime(text, 0, minutes);
  return text;
}

/// Marks a missing value; "." in a catalogue line, an empty box in an editor.
inline constexpr float kNoValue = 999999.F;
inline constexpr std::string_view kNoValueText = ".";

/// Parses the value of a field; "." alone is `kNoValue`. "," and "." are both decimal separators;
/// text that is not a number reads as 0.
float ReadValue(std::string_view field);

/// The text of a value in a line ("." for `kNoValue`) and in a box ("" for `kNoValue`).
std::string LineValue(float value, char decimalSeparator);
std::string BoxValue(float value, char decimalSeparator);

}  // namespace zek
