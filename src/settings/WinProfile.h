#pragma once

#include <optional>
#include <string>

#include "settings/FileProfile.h"

namespace zek {

/// The settings file through the profile calls of Windows. They would write it in place, where the
/// end of the program can tear it: our own code replaces it as a whole.
class WinProfile final : public Profile {
 public:
  /// `ansiPath` is a full path in the system's code page: a bare name would mean the Windows
  /// directory to the calls. `path` is the same in UTF-8, for messages.
  WinProfile(Files& files, std::string ansiPath, const std::string& path)
      : ansiPath_(std::move(ansiPath)), writer_(files, path) {}

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override;
  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override;
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override;

 private:
  std::string ansiPath_;
  FileProfile writer_;
};

/// What the calls take for a UTF-8 path: the full path in the system's code page. Nothing where
/// that lacks a character of it, and where it is UTF-8, through which the calls would spoil
/// windows-1252 text.
std::optional<std::string> ProfileCallPath(const std::string& path);

}  // namespace zek
