#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Removes the first line and its end (CR LF or LF) from `text`; returns the line without the end.
std::string_view TakeLine(std::string_view& text);

/// Makes a message one line for a log or a terminal: joins its non-empty lines by blanks and
/// replaces control characters as `ShowControls` does.
std::string OnOneLine(std::string_view message);

/// Shortens windows-1252 text that is longer than `longest` characters: keeps that many of them,
/// of which `end` from the end of the text, and puts an ellipsis where the others were.
std::string Shortened(std::string_view text, std::size_t longest, std::size_t end = 0);

}  // namespace zek
