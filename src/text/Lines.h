#pragma once

#include <string_view>

namespace zek {

/// Takes the first line off `text`, its CR LF or LF included, and returns it without.
std::string_view TakeLine(std::string_view& text);

}  // namespace zek
