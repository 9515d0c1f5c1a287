#pragma once

#include "settings/Profile.h"

namespace zek {

/// Reads and writes the settings file with the rules of `ProfileText.h`. While the file can't be
/// read, for example on a network drive that is disconnected for a moment, the text read last
/// remains valid: defaults must not replace the operator's settings.
class FileProfile final : public Profile {
 public:
  FileProfile(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override;
  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override;
  std::optional<FileError> RemoveIni(std::string_view section, std::string_view key) override;
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override;

  /// True if the system's profile calls can't stand in for this class: the file is UTF-8 or UTF-16,
  /// see `ProfileEncoding`, or it can't be read now.
  bool ReadsAlone() const;

 private:
  const std::string& Text() const;
  std::optional<FileError> Change(std::string_view section, std::string_view key,
                                  std::optional<std::string_view> value);

  Files& files_;
  std::string path_;
  mutable std::optional<std::string> text_;  // as last read; nothing before that
  mutable bool readsAlone_ = false;
};

}  // namespace zek
