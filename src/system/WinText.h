#pragma once

#include <string>
#include <string_view>

namespace zek {

/// UTF-8 and the system's own Unicode text. What is neither becomes the replacement character.
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

/// The system's own words for one of its error codes, UTF-8.
std::string SystemMessage(unsigned long code);

}  // namespace zek
