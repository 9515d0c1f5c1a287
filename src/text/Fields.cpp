#include "text/Fields.h"

#include <algorithm>
#include <array>

namespace zek {
namespace {

// Nearly all separators are one character; searching for a character is several times faster.
std::size_t FindSeparator(std::string_view text, std::string_view separator, std::size_t from) {
  return separator.size() == 1 ? text.find(separator.front(), from) : text.find(separator, from);
}

}  // namespace

std::string_view GetField(std::string_view text, std::size_t index, std::string_view separator) {
  if (separator.empty()) separator = text.find('\t') != std::string_view::npos ? "\t" : ";";
  std::size_t start = 0;
  for (; index > 0; --index) {
    const std::size_t found = FindSeparator(text, separator, start);
    if (found == std::string_view::npos) return {};
    start = found + separator.size();
  }
  return text.substr(start, FindSeparator(text, separator, start) - start);
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

namespace {
constexpr char Upper(char letter) {
  const auto code = static_cast<unsigned char>(letter);
  const bool latin = code >= 'a' && code <= 'z';
  const bool accented = code >= 0xE0 && code <= 0xFE && code != 0xF7;  // 0xF7 is the division sign
  if (latin || accented) return static_cast<char>(code - 0x20);
  switch (code) {
    case 0x9A:
      return '\x8A';  // s, z with caron and oe are outside the regular block
    case 0x9C:
      return '\x8C';
    case 0x9E:
      return '\x8E';
    case 0xFF:
      return '\x9F';
    default:
      return letter;
  }
}
}  // namespace

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), Upper);
  return upper;
}

std::string SortKey(std::string_view text) {
  std::string key = UpperCase(text);
  for (char& letter : key) {
    if (letter == '\xC5') letter = '[';
    if (letter == '\xC4') letter = '\\';
    if (letter == '\xD6') letter = ']';
  }
  return key;
}

bool EqualNoCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return Upper(a) == Upper(b); });
}

std::size_t FindNoCase(std::string_view text, std::string_view upper, std::size_t from) {
  static constexpr auto uppers = [] {
    std::array<char, 256> all{};
    for (std::size_t code = 0; code < all.size(); ++code)
      all[code] = Upper(static_cast<char>(code));
    return all;
  }();
  if (from > text.size()) return std::string_view::npos;
  const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
  const auto found = std::search(begin, text.end(), upper.begin(), upper.end(), [](char a, char b) {
    return uppers[static_cast<unsigned char>(a)] == b;
  });
  const bool none = found == text.end() && !upper.empty();
  return none ? std::string_view::npos : static_cast<std::size_t>(found - text.begin());
}

std::string WithoutSecret(std::string_view text, std::string_view secret) {
  if (secret.empty()) return std::string(text);
  const std::string folded = UpperCase(text);
  const std::string wanted = UpperCase(secret);
  std::string hidden;
  std::size_t at = 0;
  for (std::size_t found = folded.find(wanted); found != std::string::npos;
       found = folded.find(wanted, at)) {
    hidden.append(text.substr(at, found - at)).append("***");
    at = found + wanted.size();
  }
  return hidden.append(text.substr(at));
}

}  // namespace zek
