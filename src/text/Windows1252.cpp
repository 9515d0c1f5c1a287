#include "text/Windows1252.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace zek {
namespace {

// The codes 0x80 to 0x9F, where windows-1252 differs from Latin-1.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), character);
  if (found == kHighControls.end()) return std::nullopt;
  return static_cast<char>(0x80 + (found - kHighControls.begin()));
}

// Removes one character from the start of `utf8`. Returns nothing, and removes one byte, if it
// does not start with a valid sequence.
std::optional<char32_t> TakeCharacter(std::string_view& utf8) {
  const auto first = static_cast<unsigned char>(utf8.front());
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  std::optional<char32_t> character;
  if (length >= 1 && length <= utf8.size()) {
    character = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length && character; ++i) {
      const auto next = static_cast<unsigned char>(utf8[i]);
      if ((next & 0xC0) == 0x80) {
        character = (*character << 6) | (next & 0x3FU);
      } else {
        character.reset();
      }
    }
  }
  utf8.remove_prefix(character ? length : 1);
  return character;
}

}  // namespace

char32_t UnicodeFromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte <= 0x9F ? kHighControls[byte - 0x80U] : byte;
}

std::string Utf8FromWindows1252(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char byte : bytes) {
    const char32_t character = UnicodeFromWindows1252(static_cast<unsigned char>(byte));
    if (character < 0x80) {
      utf8 += byte;
    } else if (character < 0x800) {
      utf8 += static_cast<char>(0xC0 | (character >> 6));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | (character >> 12));
      utf8 += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
  return utf8;
}

std::string Windows1252FromUtf8(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::optional<char32_t> character = TakeCharacter(utf8);
    bytes += character ? ByteOf(*character).value_or('?') : '?';
  }
  return bytes;
}

std::string_view WithoutUtf8Mark(std::string_view bytes) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!TakeCharacter(bytes)) return false;
  }
  return true;
}

std::size_t Utf8Offset(std::string_view utf8, std::size_t index) {
  std::string_view rest = utf8;
  for (; index > 0 && !rest.empty(); --index) TakeCharacter(rest);
  return utf8.size() - rest.size();
}

std::string Windows1252FromUtf16(std::string_view bytes) {
  std::string text;
  for (; bytes.size() > 1; bytes.remove_prefix(2)) {
    const auto low = static_cast<unsigned char>(bytes[0]);
    const auto high = static_cast<unsigned char>(bytes[1]);
    // Each half of a surrogate pair becomes "?".
    text += ByteOf(static_cast<char32_t>(high) << 8 | low).value_or('?');
  }
  return text;
}

bool FitsWindows1252(std::string_view utf8) {
  while (!utf8.empty()) {
    const std::optional<char32_t> character = TakeCharacter(utf8);
    if (!character || !ByteOf(*character)) return false;
  }
  return true;
}

}  // namespace zek
