#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Stands for no value; "." in a catalogue line, an empty box in an editor.
inline constexpr float kNoValue = 999999.F;
inline constexpr std::string_view kNoValueText = ".";

/// The value of a field of a line. "," and "." are both decimal separators, text that is not a
/// number reads as 0.
float ReadValue(std::string_view field);

/// The text of a value in a line ("." for none) and in a box ("" for none).
std::string LineValue(float value, char decimalSeparator);
std::string BoxValue(float value, char decimalSeparator);

/// A value as it is typed: `ReadValue`, and "," alone is none as well.
float TypedValue(std::string_view text);

}  // namespace zek
