#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Field number `index` (from 0) of `text` cut at every `separator`; the last field runs to the
/// end of the text, an index beyond it yields "". An empty separator means tab, or ";" when the
/// text holds no tab. Catalogue lines are cut with "!", settings values with ",", ";" or "=".
std::string_view GetField(std::string_view text, std::size_t index, std::string_view separator);

/// `text` without leading and trailing blanks (code 32 only, as the controllers pad with).
std::string_view Trim(std::string_view text);

/// A to Z in place of a to z, and the same for the accented letters of windows-1252 (å to Å).
std::string UpperCase(std::string_view text);

/// `text` with "***" wherever `secret` occurs in it, in any case; an empty secret hides nothing.
std::string WithoutSecret(std::string_view text, std::string_view secret);

/// True when both are the same without regard to case, as `UpperCase` folds it.
bool EqualNoCase(std::string_view left, std::string_view right);

}  // namespace zek
