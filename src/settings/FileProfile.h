#pragma once

#include "settings/Profile.h"

namespace zek {

/// The settings file read and written by our own code, with the rules of `ProfileText.h`. While it
/// can't be read, as on a network drive that is gone for a moment, what was read last holds: a
/// program that works on must not take a default for the operator's word.
class FileProfile final : public Profile {
 public:
  FileProfile(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override;
  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override;
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override;

 private:
  const std::string& Text() const;

  Files& files_;
  std::string path_;
  mutable std::optional<std::string> text_;  // as it was read last; nothing before the first time
};

}  // namespace zek
