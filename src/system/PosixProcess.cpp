#include <clocale>
#include <iostream>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

#include "system/Paths.h"
#include "system/Process.h"

namespace zek {

std::vector<std::string> ProgramArguments(int argc, char** argv) { return {argv + 1, argv + argc}; }

std::string ExecutableDirectory() {
  std::error_code error;  // an unreadable link yields "/"
  return WithSeparator(
      Utf8Of(std::filesystem::read_symlink("/proc/self/exe", error).parent_path()));
}

std::string UserName() {
  // Safe: called once, at the start, before there are threads.
  const passwd* const user = ::getpwuid(::geteuid());  // NOLINT(concurrency-mt-unsafe)
  return user == nullptr ? std::string() : user->pw_name;
}

std::string CanonicalDirectory(const std::string& path) {
  std::error_code error;
  const std::filesystem::path canonical = std::filesystem::canonical(PathOf(path), error);
  return error ? path : WithSeparator(Utf8Of(canonical));
}

char SystemDecimalSeparator() {
  std::setlocale(LC_NUMERIC, "");
  const char separator = *std::localeconv()->decimal_point == ',' ? ',' : '.';
  std::setlocale(LC_NUMERIC, "C");
  return separator;
}

void PrepareStandardStreams() {}

bool IsErrorTerminal() { return ::isatty(STDERR_FILENO) != 0; }

void Complain(const std::string& utf8) { std::cerr << utf8 << '\n'; }

void Inform(const std::string& utf8) { std::cout << utf8 << '\n'; }

}  // namespace zek
