#include "system/WinConsole.h"

#include <windows.h>
#include <algorithm>

#include "system/WinText.h"

namespace zek {
namespace {
constexpr std::size_t kMostAtOnce = 8192;  // characters; consoles refuse what is much larger
}

bool ConsoleBuffer::Begin() {
  DWORD mode = 0;
  console_ = ::GetStdHandle(stream_);
  if (::GetConsoleMode(console_, &mode) == 0) return false;
  escapes_ = ::SetConsoleMode(console_, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
  return true;
}

ConsoleBuffer::int_type ConsoleBuffer::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
  const char byte = traits_type::to_char_type(character);
  return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
}

std::streamsize ConsoleBuffer::xsputn(const char* text, std::streamsize size) {
  waiting_.append(text, static_cast<std::size_t>(size));
  return Show(waiting_.rfind('\n') + 1) ? size : 0;
}

// Whoever flushes has written whole characters.
int ConsoleBuffer::sync() { return Show(waiting_.size()) ? 0 : -1; }

bool ConsoleBuffer::Show(std::size_t bytes) {
  const std::wstring wide = WideFromUtf8(std::string_view(waiting_).substr(0, bytes));
  waiting_.erase(0, bytes);
  for (std::wstring_view rest = wide; !rest.empty();) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min(rest.size(), kMostAtOnce));
    if (::WriteConsoleW(console_, rest.data(), size, &written, nullptr) == 0 || written == 0) {
      return false;
    }
    rest.remove_prefix(written);
  }
  return true;
}

}  // namespace zek
