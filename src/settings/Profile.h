#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/Files.h"
#include "text/Fields.h"

namespace zek {

/// A whole section as the platform's profile call returns it.
struct ProfileSection {
  std::vector<std::string> entries;  // "key=value" without blanks around "=", quotes kept
  std::size_t length = 0;            // characters returned, including the end of each entry
  bool cut = false;                  // the buffer was full; the last entry may be incomplete
};

/// The largest buffer for `Profile::ReadSection`: the most that the system's call returns.
inline constexpr std::size_t kWholeSection = 32767;

/// Access to ZEKView.INI. Names of sections and keys ignore case.
class Profile {
 public:
  virtual ~Profile() = default;

  /// Returns the value, at most 127 characters, or `fallback` if file, section or key is missing.
  virtual std::string ReadIni(std::string_view section, std::string_view key,
                              std::string_view fallback) const = 0;

  /// Sets a value; returns the error, if any.
  virtual std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                            std::string_view value) = 0;

  /// Removes a key's line; returns the error, if any. A missing key is none.
  virtual std::optional<FileError> RemoveIni(std::string_view section, std::string_view key) = 0;

  /// Returns the entries of a section that fit in a buffer of `bufferSize` characters.
  virtual ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const = 0;
};

/// True only if the value is "YES", in any case.
inline bool ReadYesNo(const Profile& profile, std::string_view section, std::string_view key,
                      std::string_view fallback) {
  return EqualNoCase(profile.ReadIni(section, key, fallback), "YES");
}

/// Opens the settings file at `path`. On Windows the system's profile calls read it, elsewhere
/// `FileProfile`, which behaves the same; `FileProfile` writes it everywhere. `files` must outlive
/// the result.
std::unique_ptr<Profile> OpenSettingsFile(Files& files, const std::string& path);

}  // namespace zek
