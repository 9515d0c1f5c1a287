#include "system/WinText.h"

#include <windows.h>
#include <array>

namespace zek {

std::wstring WideFromUtf8(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), length);
  return wide;
}

std::string Utf8FromWide(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int length =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

std::string SystemMessage(unsigned long code) {
  std::array<wchar_t, 512> text{};
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, code, 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
  std::wstring_view words(text.data(), length);
  words = words.substr(0, words.find_last_not_of(L" \r\n") + 1);
  if (words.empty()) return "error " + std::to_string(code);
  return Utf8FromWide(words);
}

}  // namespace zek
