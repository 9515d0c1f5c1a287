#include "settings/FileProfile.h"

#include "settings/ProfileEncoding.h"
#include "settings/ProfileText.h"

namespace zek {

const std::string& FileProfile::Text() const {
  static const std::string none;
  FileContent file = files_.Read(path_);
  readsAlone_ = file.error.has_value();
  if (!file.error) {
    const ProfileEncoding encoding(file.bytes);
    readsAlone_ = encoding.IsUnicode();
    text_ = encoding.Decoded(file.bytes);
  }
  return text_ ? *text_ : none;
}

bool FileProfile::ReadsAlone() const {
  Text();
  return readsAlone_;
}

std::string FileProfile::ReadIni(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
  if (!IsProfileName(section) || !IsProfileName(key)) return ProfileDefault(fallback);
  std::optional<std::string> value = ProfileValue(Text(), section, key);
  return value ? ProfileCut(std::move(*value)) : ProfileDefault(fallback);
}

std::optional<FileError> FileProfile::WriteIni(std::string_view section, std::string_view key,
                                               std::string_view value) {
  return Change(section, key, value);
}

std::optional<FileError> FileProfile::RemoveIni(std::string_view section, std::string_view key) {
  return Change(section, key, std::nullopt);
}

std::optional<FileError> FileProfile::Change(std::string_view section, std::string_view key,
                                             std::optional<std::string_view> value) {
  const std::string refusal = ProfileRefusal(section, key, value.value_or(std::string_view()));
  if (!refusal.empty()) return FileError{path_, FileError::Reason::Other, refusal};
  FileContent file = files_.Read(path_);
  // A new file would lose all other settings if the old one is only unreadable for a moment.
  const bool isNew = file.error && file.error->reason == FileError::Reason::Missing && !text_;
  if (file.error && !isNew) return file.error;
  if (isNew && !value) return std::nullopt;
  const ProfileEncoding encoding(file.bytes);
  return files_.Write(path_, encoding.WithValue(std::move(file.bytes), section, key, value));
}

ProfileSection FileProfile::ReadSection(std::string_view section, std::size_t bufferSize) const {
  if (!IsProfileName(section)) return {};
  return ProfileSectionText(Text(), section, bufferSize);
}

}  // namespace zek
