#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Returns text of the core (windows-1252) as text of HTML or XML, UTF-8, which may be the value of
/// an attribute in double quotes. Control characters become blanks, because XML has none.
std::string MarkupText(std::string_view text);

}  // namespace zek
