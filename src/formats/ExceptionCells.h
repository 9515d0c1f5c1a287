#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/ExceptionTable.h"

namespace zek {

/// The boxes of a row, in the order of the Enter key.
enum class ExceptionBox { DateOn, Start, ValueOn, DateOff, Stop, ValueOff };
inline constexpr std::size_t kExceptionBoxes = 6;

/// The text of each box of a row, windows-1252.
struct ExceptionTexts {
  std::array<std::string, kExceptionBoxes> texts;

  std::string& operator[](ExceptionBox box) { return texts.at(static_cast<std::size_t>(box)); }
  const std::string& operator[](ExceptionBox box) const {
    return texts.at(static_cast<std::size_t>(box));
  }

  bool operator==(const ExceptionTexts&) const = default;
};

/// "2026-12-24".
std::string DateText(Moment moment);

/// Returns what the boxes show: dates as "2026-12-24", times as "07:05", and values. Empty are all
/// boxes of an unused row, a missing stop date or stop value, and the time of a stop of 0.
ExceptionTexts TextsOf(const OvcRow& row, char decimalSeparator);

/// Parses a typed date, "2026-12-24", "2026-1-2" or "20261224", as 00:00 of that day. Returns
/// nothing unless the parts are digits, the year is 0 to 20 or 90 to 9999, and the day exists.
std::optional<Moment> TypedExceptionDate(std::string_view text);

/// Parses a typed time, "07:05", "7.05", "0705", "705" or "7". Returns nothing unless hours (0 to
/// 24) and minutes (0 to 59) are one or two digits each. An empty text is 00:00.
std::optional<Moment> TypedExceptionTime(std::string_view text);

}  // namespace zek
