#include "text/Controls.h"

#include <experimental/simd>

namespace zek {
namespace {

namespace simd = std::experimental;
constexpr unsigned char kFirstPrintable = 32;

// Looks at `width` characters at a time as long as there are so many. True when `at` is the place
// of a control character.
template <int width>
bool Advance(std::string_view text, std::size_t& at) {
  using Characters = simd::simd<unsigned char, simd::simd_abi::deduce_t<unsigned char, width>>;
  for (; at + width <= text.size(); at += width) {
    const Characters characters(text.data() + at, simd::element_aligned);
    const auto controls = characters < kFirstPrintable;
    if (simd::none_of(controls)) continue;
    at += static_cast<std::size_t>(simd::find_first_set(controls));
    return true;
  }
  return false;
}

}  // namespace

std::size_t FindControl(std::string_view text, std::size_t from) {
  std::size_t at = from;
  if (Advance<16>(text, at) || Advance<8>(text, at) || Advance<1>(text, at)) return at;
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
