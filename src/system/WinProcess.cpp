#include <windows.h>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <memory>
#include <shellapi.h>

#include "system/Paths.h"
#include "system/Process.h"
#include "system/WinConsole.h"
#include "system/WinText.h"

namespace zek {
namespace {

// The streams use them until the process ends, after every static object is gone: they stay.
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

// Not those of `argv`: they went through the code page, which lacks characters.
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
