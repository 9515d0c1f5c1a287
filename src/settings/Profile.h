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

/// A whole section as the platform's profile call delivers it.
struct ProfileSection {
  std::vector<std::string> entries;  // "key=value" without blanks around "=", quotes kept
  std::size_t length = 0;            // characters returned, the end of each entry counted
  bool cut = false;                  // the section filled the buffer; the last entry may be torn
};

/// Access to ZEKView.INI. Sections and keys are found without regard to case.
class Profile {
 public:
  virtual ~Profile() = default;

  /// The value, at most 127 characters; `fallback` when file, section or key is missing.
  virtual std::string ReadIni(std::string_view section, std::string_view key,
                              std::string_view fallback) const = 0;

  /// What went wrong, if anything.
  virtual std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                            std::string_view value) = 0;

  /// The entries of a section, read into a buffer of `bufferSize` characters.
  virtual ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const = 0;
};

/// True exactly when the value is "YES" in any case.
inline bool ReadYesNo(const Profile& profile, std::string_view section, std::string_view key,
                      std::string_view fallback) {
  return EqualNoCase(profile.ReadIni(section, key, fallback), "YES");
}

/// The settings file at `path`, read by the platform's profile calls where the system has them,
/// else by our own code, which behaves the same; written by that everywhere. `files` outlives it.
std::unique_ptr<Profile> OpenSettingsFile(Files& files, const std::string& path);

}  // namespace zek
