#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace zek {

/// Paths are UTF-8 in memory, whatever the system's own encoding; these two are the way out and in.
inline std::filesystem::path PathOf(std::string_view utf8) {
  return {std::u8string(utf8.begin(), utf8.end())};
}

inline std::string Utf8Of(const std::filesystem::path& path) {
  const std::u8string utf8 = path.u8string();
  return {utf8.begin(), utf8.end()};
}

/// `directory` with the system's separator at its end.
inline std::string WithSeparator(std::string directory) {
  constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);
  if (!directory.ends_with('/') && !directory.ends_with(kSeparator)) directory += kSeparator;
  return directory;
}

}  // namespace zek
