#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Takes the first line off `text`, its CR LF or LF included, and returns it without.
std::string_view TakeLine(std::string_view& text);

/// The lines of a message joined by blanks, without the empty ones, control characters shown: one
/// line for a log or a terminal.
std::string OnOneLine(std::string_view message);

/// `text`, or when it is longer than `longest` characters, that many of it with "..." in place of
/// the others: the first ones and the last `end` ones.
std::string Shortened(std::string_view text, std::size_t longest, std::size_t end = 0);

}  // namespace zek
