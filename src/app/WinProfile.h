#pragma once

#include <optional>
#include <string>

#include "app/Profile.h"

namespace zek {

/// The settings file through the profile calls of Windows.
class WinProfile final : public Profile {
 public:
  /// `ansiPath` is a full path in the system's code page: a bare name would mean the Windows
  /// directory to the calls. `path` is the same in UTF-8, for messages.
  WinProfile(std::string ansiPath, std::string path)
      : ansiPath_(std::move(ansiPath)), path_(std::move(path)) {}

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override;
  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override;
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override;

 private:
  std::string ansiPath_;
  std::string path_;
};

/// What the calls take for a UTF-8 path: the full path in the system's code page. Nothing where
/// that lacks a character of it, and where it is UTF-8, through which the calls would spoil
/// windows-1252 text.
std::optional<std::string> ProfileCallPath(const std::string& path);

}  // namespace zek
