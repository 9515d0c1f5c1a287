#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zek {

/// Text in memory and in files is windows-1252; these functions convert it to and from Unicode.
std::string Utf8FromWindows1252(std::string_view bytes);

/// Characters that windows-1252 lacks and invalid UTF-8 bytes become "?".
std::string Windows1252FromUtf8(std::string_view utf8);

/// The same from UTF-16, low byte first; a single byte at the end is ignored.
std::string Windows1252FromUtf16(std::string_view bytes);

/// True if windows-1252 can represent every character of the UTF-8 text.
bool FitsWindows1252(std::string_view utf8);

/// True if the bytes are valid UTF-8.
bool IsUtf8(std::string_view bytes);

/// Returns the bytes without the mark with which some programs begin UTF-8 files.
std::string_view WithoutUtf8Mark(std::string_view bytes);

/// Returns where the character begins in `utf8` that `Windows1252FromUtf8` puts at `index`.
std::size_t Utf8Offset(std::string_view utf8, std::size_t index);

/// Returns the Unicode character of a windows-1252 byte. The five undefined bytes (0x81, 0x8D,
/// 0x8F, 0x90, 0x9D) map to the control character of the same code, as in the platform's
/// conversion.
char32_t UnicodeFromWindows1252(unsigned char byte);

namespace detail {
template <std::size_t N>
struct Windows1252Literal {
  std::array<char, N> bytes{};
  std::size_t length = 0;

  // Source files are UTF-8. Only Latin-1 characters are supported: in UTF-8 those beyond ASCII are
  // two bytes, of which the first is C2 or C3. Any other character is a compile error.
  constexpr Windows1252Literal(const char (&utf8)[N]) {  // NOLINT(*-explicit-*, *-c-arrays)
    for (std::size_t i = 0; i + 1 < N; ++i) {
      const auto code = static_cast<unsigned char>(utf8[i]);
      if (code < 0x80) {
        bytes[length++] = utf8[i];
      } else if (code == 0xC2 || code == 0xC3) {
        const auto low = static_cast<unsigned char>(utf8[++i]);
        bytes[length++] = static_cast<char>(((code & 0x03) << 6) | (low & 0x3F));
      } else {
        throw "a literal holds a character that is not in Latin-1";
      }
    }
  }
};
}  // namespace detail

/// "Öppna"_w1252: a literal in windows-1252, converted at compile time.
template <detail::Windows1252Literal literal>
constexpr std::string_view operator""_w1252() {
  return {literal.bytes.data(), literal.length};
}

}  // namespace zek
