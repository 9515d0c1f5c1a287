#include "app/FileProfile.h"

#include "app/ProfileText.h"

namespace zek {

std::string FileProfile::ReadIni(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  if (!IsProfileName(section) || !IsProfileName(key)) return ProfileDefault(fallback);
  const std::string text = ProfileBytes(files_.Read(path_).bytes);
  std::optional<std::string> value = ProfileValue(text, section, key);
  return value ? ProfileCut(std::move(*value)) : ProfileDefault(fallback);
}

std::optional<FileError> FileProfile::WriteIni(std::string_view section, std::string_view key,
                                               std::string_view value) {
  const std::string refusal = ProfileRefusal(section, key, value);
  if (!refusal.empty()) return FileError{path_, FileError::Reason::Other, refusal};
  FileContent file = files_.Read(path_);
  if (file.error && file.error->reason != FileError::Reason::Missing) return file.error;
  const std::string text = ProfileBytes(std::move(file.bytes));
  return files_.Write(path_, ProfileWithValue(text, section, key, value));
}

ProfileSection FileProfile::ReadSection(std::string_view section, std::size_t bufferSize) const {
  if (!IsProfileName(section)) return {};
  return ProfileSectionText(ProfileBytes(files_.Read(path_).bytes), section, bufferSize);
}

}  // namespace zek
