#include "text/Controls.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

namespace zek {
namespace {

// Windows-1252 has no character for the last five: as Unicode they are control characters, too, of
// which some begin an escape sequence.
bool IsShownAsCode(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code < 0x20 || code == 0x7F || code == 0x81 || code == 0x8D || code == 0x8F ||
         code == 0x90 || code == 0x9D;
}

}  // namespace

// Tests eight characters at a time: one at a time exceeds the reply handler's limit in
// docs/performance.md.
std::size_t FindControl(std::string_view text, std::size_t from) {
  constexpr std::uint64_t blanks = 0x2020202020202020;
  constexpr std::uint64_t highBits = 0x8080808080808080;
  std::size_t at = std::min(from, text.size());
  std::uint64_t eight = 0;
  for (; at + sizeof eight <= text.size(); at += sizeof eight) {
    std::memcpy(&eight, text.data() + at, sizeof eight);
    // A character below a blank borrows, which sets its high bit.
    if (((eight - blanks) & ~eight & highBits) != 0) break;
  }
  for (; at < text.size(); ++at) {
    if (static_cast<unsigned char>(text[at]) < ' ') return at;
  }
  return std::string_view::npos;
}

void ShowControls(std::string& line) {
  if (std::none_of(line.begin(), line.end(), IsShownAsCode)) return;
  std::string shown;
  for (const char character : line) {
    if (IsShownAsCode(character)) {
      shown.append("<").append(std::to_string(int{static_cast<unsigned char>(character)})) += '>';
    } else {
      shown += character;
    }
  }
  line = std::move(shown);
}

}  // namespace zek
