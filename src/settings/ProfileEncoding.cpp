#include "settings/ProfileEncoding.h"

#include <algorithm>

#include "settings/ProfileText.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

bool IsAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

}  // namespace

ProfileEncoding::ProfileEncoding(std::string_view file) {
  if (file.starts_with(kUtf16Mark)) {
    kind_ = Kind::Utf16;
    mark_ = kUtf16Mark.size();
  } else if (const std::size_t bytes = WithoutUtf8Mark(file).size(); bytes < file.size()) {
    kind_ = Kind::Utf8;
    mark_ = file.size() - bytes;
  } else if (!IsAscii(file) && IsUtf8(file)) {
    kind_ = Kind::Utf8;
  }
}

std::string ProfileEncoding::Decoded(std::string_view file) const {
  const std::string_view bytes = file.substr(std::min(mark_, file.size()));
  if (kind_ == Kind::Utf16) return Windows1252FromUtf16(bytes);
  if (kind_ == Kind::Utf8) return Windows1252FromUtf8(bytes);
  return std::string(bytes);
}

std::string ProfileEncoding::Encoded(std::string_view text) const {
  if (kind_ == Kind::Windows1252) return std::string(text);
  if (kind_ == Kind::Utf8) return Utf8FromWindows1252(text);
  std::string bytes;
  for (const char byte : text) {
    const char32_t character = UnicodeFromWindows1252(static_cast<unsigned char>(byte));
    bytes += static_cast<char>(character & 0xFF);
    bytes += static_cast<char>(character >> 8);
  }
  return bytes;
}

// Returns where the character of the decoded text begins in the file.
std::size_t ProfileEncoding::Offset(std::string_view file, std::size_t index) const {
  if (kind_ == Kind::Windows1252) return index;
  if (kind_ == Kind::Utf16) return mark_ + 2 * index;
  return mark_ + Utf8Offset(file.substr(mark_), index);
}

std::string ProfileEncoding::WithValue(std::string file, std::string_view section,
                                       std::string_view key,
                                       std::optional<std::string_view> value) const {
  const ProfileChange change = ChangeToValue(Decoded(file), section, key, value);
  const std::size_t start = Offset(file, change.at);
  const std::size_t end = Offset(file, change.at + change.length);
  return file.replace(start, end - start, Encoded(change.text));
}

}  // namespace zek
