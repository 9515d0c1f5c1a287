#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zek {

/// Paths in memory are UTF-8 on every system; these two functions convert them.
inline std::filesystem::path PathOf(std::string_view utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

/// Adds the system's separator to the end of `directory` unless it has one.
inline std::string WithSeparator(std::string directory) {
  constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
  if (!directory.ends_with('/') && !directory.ends_with(kSeparator)) directory += kSeparator;
  return directory;
}

}  // namespace zek
