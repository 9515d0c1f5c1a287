#pragma once

#include <string>
#include <string_view>

namespace zek {

/// Takes the first line off `text`, its CR LF or LF included, and returns it without.
std::string_view TakeLine(std::string_view& text);

/// The lines of a message joined by blanks, without the empty ones, control characters shown: one
/// line for a log or a terminal.
std::string OnOneLine(std::string_view message);

}  // namespace zek
