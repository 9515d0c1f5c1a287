#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// The number that `text` begins with: leading blanks are skipped, then the longest run of sign,
/// digits, one "." and an exponent counts; text that begins with no number gives 0. A magnitude
/// beyond double gives the largest double.
double Val(std::string_view text);

/// True when the text as a whole is a number, leading and trailing blanks aside.
bool IsNumeric(std::string_view text);

/// `value` rounded half to even, or nothing when that lies outside -32768..32767.
std::optional<std::int16_t> ToInt16(double value);

/// `value` as single precision; what lies beyond its range gives its largest number.
float ToSingle(double value);

/// Like `Val`, with "," accepted for "." ("21,5" and "21.5" are both 21.5).
double ParseNumber(std::string_view text);

/// At most 7 significant digits in the general format ("21", "21.5", "0.1", "1E+07" only beyond
/// 7 digits before the point), with the given decimal separator.
std::string FormatNumber(double value, char decimalSeparator);

/// A whole number from 0 up with zeros before it, so that it has at least `width` digits.
std::string ZeroPadded(int number, std::size_t width);

}  // namespace zek
