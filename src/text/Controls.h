#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// The place of the first control character (below 32) of `text` from place `from` on, or npos.
std::size_t FindControl(std::string_view text, std::size_t from = 0);

/// Replaces control characters by "<" code ">": what comes from outside must neither hide in a
/// message nor steer a terminal.
void ShowControls(std::string& line);

/// True for characters 0, 2 and 3, which the lines to the controllers stray into their texts.
constexpr bool IsStray(char character) {
  return character == 0 || character == 2 || character == 3;
}

}  // namespace zek
