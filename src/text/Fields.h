#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Splits `text` at every `separator` and returns field `index` (from 0), or "" beyond the last
/// field. An empty separator means tab, or ";" if the text has no tab. Catalogue lines are split
/// at "!", settings values at ",", ";" or "=".
std::string_view GetField(std::string_view text, std::size_t index, std::string_view separator);

/// Removes leading and trailing blanks: only code 32, with which the controllers pad.
std::string_view Trim(std::string_view text);

/// Converts to upper case, including the accented letters of windows-1252 (å to Å).
std::string UpperCase(std::string_view text);

/// Returns the text to compare for the Swedish order, in any case: å, ä and ö follow z. Their
/// substitutes "[", "\" and "]" sort after "Z".
std::string SortKey(std::string_view text);

/// Replaces every occurrence of `secret` by "***", ignoring case; an empty secret hides nothing.
std::string WithoutSecret(std::string_view text, std::string_view secret);

/// Returns where `what` begins in `text` at or after `from`, ignoring case, or npos. `upper` is
/// `UpperCase` of what is sought.
std::size_t FindNoCase(std::string_view text, std::string_view upper, std::size_t from = 0);

/// True if both texts are equal after `UpperCase`.
bool EqualNoCase(std::string_view left, std::string_view right);

}  // namespace zek
