#pragma once

#include <optional>
#include <string>

#include "settings/FileProfile.h"

namespace zek {

/// Reads the settings file through the profile calls of Windows, but UTF-8 and UTF-16 with
/// `FileProfile`: the calls convert only by the system's code page. So also a file that can't be
/// read now: the calls would return the defaults. Writing uses `FileProfile` too, which replaces
/// the whole file: the calls write in place, and a crash would leave half a file.
class WinProfile final : public Profile {
 public:
  /// `ansiPath` is a full path in the system's code page: the calls search bare names in the
  /// Windows directory. `path` is the same path in UTF-8.
  WinProfile(Files& files, std::string ansiPath, const std::string& path)
      : ansiPath_(std::move(ansiPath)), file_(files, path) {}

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override;
  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override;
  std::optional<FileError> RemoveIni(std::string_view section, std::string_view key) override;
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override;

 private:
  void DiscardCache() const;

  std::string ansiPath_;
  FileProfile file_;
};

/// Converts a UTF-8 path for the calls: the full path in the system's code page. Returns nothing if
/// the code page lacks a character of the path, or if it is UTF-8, with which the calls would
/// corrupt windows-1252 text.
std::optional<std::string> ProfileCallPath(const std::string& path);

}  // namespace zek
