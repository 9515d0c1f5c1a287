#pragma once

#include <string>
#include <utility>

#include "settings/ProfileEncoding.h"
#include "settings/ProfileText.h"

namespace zek::fuzz {

/// A settings file in memory, with the rules of the real one.
class MemoryProfile final : public Profile {
 public:
  explicit MemoryProfile(std::string text) : text_(ProfileEncoding(text).Decoded(text)) {}

  const std::string& Text() const { return text_; }

  std::string ReadIni(std::string_view section, std::string_view key,
                      std::string_view fallback) const override {
    std::optional<std::string> value = ProfileValue(text_, section, key);
    return value ? ProfileCut(*std::move(value)) : ProfileDefault(fallback);
  }

  std::optional<FileError> WriteIni(std::string_view section, std::string_view key,
                                    std::string_view value) override {
    if (!ProfileRefusal(section, key, value).empty()) return FileError{};
    text_ = ProfileEncoding("").WithValue(text_, section, key, value);
    return std::nullopt;
  }

  std::optional<FileError> RemoveIni(std::string_view section, std::string_view key) override {
    text_ = ProfileEncoding("").WithValue(text_, section, key, std::nullopt);
    return std::nullopt;
  }
  ProfileSection ReadSection(std::string_view section, std::size_t bufferSize) const override {
    return ProfileSectionText(text_, section, bufferSize);
  }

 private:
  std::string text_;
};

}  // namespace zek::fuzz
