#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// Parses the number at the start of `text`, after leading blanks: sign, digits, one "." and an
/// exponent. Returns 0 if there is no number, and the largest double if the magnitude is too large.
double Val(std::string_view text);

/// True if the whole text is a number; leading and trailing blanks are allowed.
bool IsNumeric(std::string_view text);

/// Rounds half to even; returns nothing if the result is outside -32768..32767.
std::optional<std::int16_t> ToInt16(double value);

/// Converts to single precision; values beyond its range become its largest number.
float ToSingle(double value);

/// Like `Val`, but also accepts "," as decimal separator ("21,5" and "21.5" are both 21.5).
double ParseNumber(std::string_view text);

/// Formats with at most 7 significant digits and the given decimal separator: "21", "21.5", "0.1".
/// An exponent ("1E+07") appears for more than 7 digits before the separator.
std::string FormatNumber(double value, char decimalSeparator);

/// Formats a number from 0 up with leading zeros to at least `width` digits.
std::string ZeroPadded(int number, std::size_t width);

}  // namespace zek
