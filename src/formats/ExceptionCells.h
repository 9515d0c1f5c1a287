#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "formats/ExceptionTable.h"

namespace zek {

/// The boxes of a row in the order of the Enter key.
enum class ExceptionBox { DateOn, Start, ValueOn, DateOff, Stop, ValueOff };
inline constexpr std::size_t kExceptionBoxes = 6;

/// A text for each box of a row.
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

/// What the boxes show: nothing for an unused row, else dates as "2026-12-24", times as "07:05"
/// and values; a stop date or stop value that there is none of, and the time of a stop of 0, are
/// empty.
ExceptionTexts TextsOf(const OvcRow& row, char decimalSeparator);

/// 00:00 of a date as it is typed, "2026-12-24" or "20261224"; nothing when it is refused: the
/// year must be 0 to 20 or 90 to 9999, the month 1 to 12, the day 1 to 31 in any month.
std::optional<Moment> TypedExceptionDate(std::string_view text);

/// A time as it is typed, "07:05", "7:05" or "0705"; nothing when it is refused: hours and minutes
/// must be digits, at most two each, 0 to 24 and 0 to 59. What is missing is 0.
std::optional<Moment> TypedExceptionTime(std::string_view text);

}  // namespace zek
