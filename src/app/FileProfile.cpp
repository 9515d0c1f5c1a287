#include "app/FileProfile.h"

#include <algorithm>

#include "app/ProfileText.h"

namespace zek {
namespace {
constexpr std::size_t kLongestValue = 127;  // the profile call's buffer of 128 less its end
}

std::string FileProfile::ReadIni(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  const std::string text = ProfileBytes(files_.Read(path_).bytes);
  const std::string_view trimmed = fallback.substr(0, fallback.find_last_not_of(' ') + 1);
  std::string value = ProfileValue(text, section, key).value_or(std::string(trimmed));
  value.resize(std::min(value.size(), kLongestValue));
  return value;
}

std::optional<FileError> FileProfile::WriteIni(std::string_view section, std::string_view key,
                                               std::string_view value) {
  FileContent file = files_.Read(path_);
  if (file.error && file.error->reason != FileError::Reason::Missing) return file.error;
  if (value.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos) {
    return FileError{path_, FileError::Reason::Other, "a value can't hold a line end"};
  }
  const std::string text = ProfileBytes(std::move(file.bytes));
  return files_.Write(path_, ProfileWithValue(text, section, key, value));
}

ProfileSection FileProfile::ReadSection(std::string_view section, std::size_t bufferSize) const {
  return ProfileSectionText(ProfileBytes(files_.Read(path_).bytes), section, bufferSize);
}

}  // namespace zek
