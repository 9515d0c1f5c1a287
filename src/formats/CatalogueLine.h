#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {

/// A controller's line buffer has places 0 to 200, so no catalogue is longer.
inline constexpr std::size_t kMaxCatalogueLines = 201;

// What the lines of all catalogues have in common. Columns count from 0 in this file.

inline constexpr std::string_view kFieldMark = "!";   // between the fields of a line
inline constexpr std::string_view kRangeMark = "..";  // between first and last day, start and stop
inline constexpr std::size_t kNumberWidth = 5;        // columns of the line number
inline constexpr std::size_t kLineNameLength = 12;    // characters of a time control's name

/// Returns the part of a time control's name that a line holds, without blanks around it.
inline std::string_view LineName(std::string_view name) {
  return Trim(Trim(name).substr(0, kLineNameLength));
}

/// Removes the first field and its "!" from `rest`; returns the field including its blanks.
inline std::string_view TakeColumns(std::string_view& rest) {
  const std::string_view field = GetField(rest, 0, kFieldMark);
  rest.remove_prefix(std::min(rest.size(), field.size() + kFieldMark.size()));
  return field;
}

/// Does the same and returns the field without blanks around it.
inline std::string_view TakeField(std::string_view& rest) { return Trim(TakeColumns(rest)); }

/// Returns `text` from a column on; "" beyond its end.
inline std::string_view FromColumn(std::string_view text, std::size_t column) {
  return text.substr(std::min(text.size(), column));
}

/// Returns the number in `width` columns; 0 if there is no number or the text is too short.
inline double NumberAt(std::string_view text, std::size_t column, std::size_t width) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const std::string_view digits = FromColumn(text, column).substr(0, width);
  // Fast path: nearly every number of a catalogue has two digits.
  if (digits.size() == 2 && isDigit(digits[0]) && isDigit(digits[1])) {
    return (digits[0] - '0') * 10 + (digits[1] - '0');
  }
  return Val(digits);
}

// Lines are built by overwriting the blanks of a layout: assembling the parts separately would
// double the time of building.

/// Overwrites a line with `text` from a column on, up to the line's end; returns the column after
/// it.
inline std::size_t Put(std::string& line, std::size_t column, std::string_view text) {
  return column + text.copy(line.data() + column, line.size() - column);
}

/// Writes a positive number so that it ends before `column`.
inline void PutNumberBefore(std::string& line, std::size_t column, int number) {
  for (; number > 0 && column > 0; number /= 10) {
    line[--column] = static_cast<char>('0' + number % 10);
  }
}

/// Writes the last two digits of a number that is not negative; returns the column after them.
inline std::size_t PutTwoDigits(std::string& line, std::size_t column, int number) {
  line[column] = static_cast<char>('0' + number / 10 % 10);
  line[column + 1] = static_cast<char>('0' + number % 10);
  return column + 2;
}

}  // namespace zek
