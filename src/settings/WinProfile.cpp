#include "settings/WinProfile.h"

#include <windows.h>
#include <algorithm>
#include <array>
#include <vector>

#include "settings/FileProfile.h"
#include "settings/Profile.h"
#include "settings/ProfileText.h"
#include "system/WinText.h"

namespace zek {
namespace {
constexpr DWORD kValueBuffer = 128;  // the last character is NUL
}

std::string WinProfile::ReadIni(std::string_view section, std::string_view key,
                                std::string_view fallback) const {
  if (!IsProfileName(section) || !IsProfileName(key)) return ProfileDefault(fallback);
  if (file_.ReadsAlone()) return file_.ReadIni(section, key, fallback);
  std::array<char, kValueBuffer> value{};
  const DWORD length = ::GetPrivateProfileStringA(
      std::string(section).c_str(), std::string(key).c_str(), std::string(fallback).c_str(),
      value.data(), kValueBuffer, ansiPath_.c_str());
  return {value.data(), length};
}

std::optional<FileError> WinProfile::WriteIni(std::string_view section, std::string_view key,
                                              std::string_view value) {
  auto error = file_.WriteIni(section, key, value);
  DiscardCache();
  return error;
}

std::optional<FileError> WinProfile::RemoveIni(std::string_view section, std::string_view key) {
  auto error = file_.RemoveIni(section, key);
  DiscardCache();
  return error;
}

// The profile calls keep what they read of a file.
void WinProfile::DiscardCache() const {
  ::WritePrivateProfileStringA(nullptr, nullptr, nullptr, ansiPath_.c_str());
}

ProfileSection WinProfile::ReadSection(std::string_view section, std::size_t bufferSize) const {
  ProfileSection result;
  if (!IsProfileName(section)) return result;
  if (file_.ReadsAlone()) return file_.ReadSection(section, bufferSize);
  std::vector<char> buffer(bufferSize);
  result.length = ::GetPrivateProfileSectionA(std::string(section).c_str(), buffer.data(),
                                              static_cast<DWORD>(bufferSize), ansiPath_.c_str());
  result.cut = result.length >= bufferSize - 2;
  std::string_view rest(buffer.data(), result.length);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\0'), rest.size());
    if (end > 0) result.entries.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return result;
}

std::optional<std::string> ProfileCallPath(const std::string& path) {
  if (::GetACP() == CP_UTF8) return std::nullopt;
  const std::wstring given = WideFromUtf8(path);
  std::wstring full(32768, L'\0');  // no path is longer
  full.resize(
      ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  BOOL lost = FALSE;
  std::string ansi(full.size() * 4, '\0');
  const int length = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, full.data(),
                                           static_cast<int>(full.size()), ansi.data(),
                                           static_cast<int>(ansi.size()), nullptr, &lost);
  if (length == 0 || lost != FALSE) return std::nullopt;
  ansi.resize(static_cast<std::size_t>(length));
  return ansi;
}

std::unique_ptr<Profile> OpenSettingsFile(Files& files, const std::string& path) {
  if (const std::optional<std::string> ansiPath = ProfileCallPath(path)) {
    return std::make_unique<WinProfile>(files, *ansiPath, path);
  }
  return std::make_unique<FileProfile>(files, path);
}

}  // namespace zek
