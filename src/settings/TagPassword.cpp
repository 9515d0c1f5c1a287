#include "settings/TagPassword.h"

#include <algorithm>

#include "system/Secret.h"

namespace zek {
namespace {

constexpr std::string_view kSection = "General";
constexpr std::string_view kKey = "Password";
constexpr std::string_view kMark = "{dpapi}";  // no password of a person begins so

// An encrypted password is longer than the values that `ReadIni` returns.
std::string WholeValue(const Profile& profile) {
  for (const std::string& entry : profile.ReadSection(kSection, kWholeSection).entries) {
    if (EqualNoCase(GetField(entry, 0, "="), kKey)) return entry.substr(entry.find('=') + 1);
  }
  return {};
}

}  // namespace

TagPassword ReadTagPassword(const Profile& profile) {
  const std::string value = profile.ReadIni(kSection, kKey, "");
  if (value.empty()) return {};
  if (!value.starts_with(kMark)) return {TagPassword::Kind::Plain, value};
  const std::string whole = WholeValue(profile);
  const auto text = Decrypted(std::string_view(whole).substr(std::min(kMark.size(), whole.size())));
  if (!text) return {TagPassword::Kind::Lost, {}};
  return {TagPassword::Kind::Encrypted, *text};
}

std::optional<FileError> WriteTagPassword(Profile& profile, std::string_view password) {
  const std::optional<std::string> encrypted = Encrypted(password);
  if (!encrypted) return FileError{std::string(kKey), FileError::Reason::Other, "not encrypted"};
  return profile.WriteIni(kSection, kKey, std::string(kMark) + *encrypted);
}

}  // namespace zek
