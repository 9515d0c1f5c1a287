#include <windows.h>
#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <memory>
#include <shellapi.h>
#include <streambuf>
#include <string>

#include "system/Paths.h"
#include "system/Process.h"
#include "system/WinHandle.h"
#include "system/WinText.h"

namespace zek {

/// Writes a stream to a console as Unicode text, independent of the console's code page.
class ConsoleBuffer final : public std::streambuf {
 public:
  /// `stream` is the system's number of a standard stream. Call `Begin` before use.
  explicit ConsoleBuffer(unsigned long stream) : stream_(stream) {}

  /// Returns false if the stream is not a console.
  bool Begin();

  /// True if the console supports escape sequences.
  bool KnowsEscapes() const { return escapes_; }

 private:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;
  bool Show(std::size_t bytes);

  unsigned long stream_;
  void* console_ = nullptr;
  bool escapes_ = false;
  std::string waiting_;  // bytes of an unfinished line
};

namespace {
constexpr std::size_t kMostAtOnce = 8192;  // characters; consoles reject much larger writes
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

// Callers flush only after whole characters.
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

namespace {

// Never deleted: the streams use them until the process ends, after static objects are destroyed.
ConsoleBuffer& Output() {
  static ConsoleBuffer* const buffer = new ConsoleBuffer(STD_OUTPUT_HANDLE);
  return *buffer;
}
ConsoleBuffer& ErrorOutput() {
  static ConsoleBuffer* const buffer = new ConsoleBuffer(STD_ERROR_HANDLE);
  return *buffer;
}

bool IsRedirected(DWORD standardHandle) {
  const DWORD type = ::GetFileType(::GetStdHandle(standardHandle));
  return type == FILE_TYPE_DISK || type == FILE_TYPE_PIPE;
}

void ShowBox(const std::string& utf8, UINT icon) {
  ::MessageBoxW(nullptr, WideFromUtf8(utf8).c_str(), L"ZekView", MB_OK | icon);
}

}  // namespace

// Ignores `argv`, which the system converted to the code page with loss of characters.
std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> wide(
      ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; wide != nullptr && i < count; ++i) {
    arguments.push_back(Utf8FromWide(wide.get()[i]));
  }
  return arguments;
}

std::string ExecutableDirectory() {
  std::wstring file(32768, L'\0');  // no path is longer
  file.resize(::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
  return WithSeparator(Utf8FromWide(file.substr(0, file.rfind(L'\\'))));
}

std::string UserName() {
  constexpr DWORD longest = 257;  // UNLEN and the final 0
  std::wstring name(longest, L'\0');
  DWORD size = longest;
  if (::GetUserNameW(name.data(), &size) == 0 || size == 0) return {};
  name.resize(size - 1);
  return Utf8FromWide(name);
}

std::string CanonicalDirectory(const std::string& path) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  // The flag is necessary to open a directory.
  const Handle directory(::CreateFileW(WideFromUtf8(path).c_str(), FILE_READ_ATTRIBUTES, shared,
                                       nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                       nullptr));
  std::wstring name(32768, L'\0');  // no path is longer
  const DWORD length = directory.IsOpen()
                           ? ::GetFinalPathNameByHandleW(directory.Get(), name.data(),
                                                         static_cast<DWORD>(name.size()), 0)
                           : 0;
  if (length == 0 || length >= name.size()) return path;
  name.resize(length);
  return WithSeparator(Utf8FromWide(name));
}

char SystemDecimalSeparator() {
  std::array<wchar_t, 8> separator{};
  ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                   static_cast<int>(separator.size()));
  return separator.front() == L',' ? ',' : '.';
}

void PrepareStandardStreams() {
  for (std::FILE* const stream : {stdin, stdout, stderr}) {
    ::_setmode(::_fileno(stream), _O_BINARY);
  }
  if (Output().Begin()) std::cout.rdbuf(&Output());
  if (ErrorOutput().Begin()) std::cerr.rdbuf(&ErrorOutput());
}

bool IsErrorTerminal() { return ErrorOutput().KnowsEscapes(); }

void Complain(const std::string& utf8) {
  if (!IsRedirected(STD_ERROR_HANDLE)) return ShowBox(utf8, MB_ICONERROR);
  std::cerr << utf8 << '\n';
}

void Inform(const std::string& utf8) {
  if (!IsRedirected(STD_OUTPUT_HANDLE)) return ShowBox(utf8, MB_ICONINFORMATION);
  std::cout << utf8 << '\n' << std::flush;
}

}  // namespace zek
