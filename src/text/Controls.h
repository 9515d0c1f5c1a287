#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Returns the position of the first control character (below 32) at or after `from`, or npos.
std::size_t FindControl(std::string_view text, std::size_t from = 0);

/// Replaces each control character, and each byte that windows-1252 does not use, by "<" code ">":
/// text from outside must neither hide in a message nor send escape sequences to a terminal.
void ShowControls(std::string& line);

/// True for characters 0, 2 and 3, which the links add to the controllers' texts by mistake.
constexpr bool IsStray(char character) {
  return character == 0 || character == 2 || character == 3;
}

}  // namespace zek
