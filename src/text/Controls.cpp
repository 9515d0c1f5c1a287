#include "text/Controls.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zek {

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
  std::size_t at = FindControl(line);
  if (at == std::string::npos) return;
  std::string shown;
  std::size_t from = 0;
  for (; at != std::string::npos; at = FindControl(line, from)) {
    shown.append(line, from, at - from).append("<").append(std::to_string(int{line[at]})) += '>';
    from = at + 1;
  }
  line = shown.append(line, from);
}

}  // namespace zek
