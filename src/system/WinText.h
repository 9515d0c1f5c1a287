#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Convert between UTF-8 and UTF-16. Invalid input becomes the replacement character.
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

/// Returns the system's text for one of its error codes, in UTF-8.
std::string SystemMessage(unsigned long code);

}  // namespace zek
