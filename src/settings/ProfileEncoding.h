#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zek {

/// The encoding of a settings file, which writing keeps: UTF-16 or UTF-8 with a byte order mark;
/// UTF-8 without one if the file is valid UTF-8 and has a character beyond ASCII; else
/// windows-1252.
class ProfileEncoding {
 public:
  explicit ProfileEncoding(std::string_view file);

  /// False for windows-1252.
  bool IsUnicode() const { return kind_ != Kind::Windows1252; }

  /// Returns the file's text as windows-1252. Characters that it lacks become "?".
  std::string Decoded(std::string_view file) const;

  /// Returns the file with the key set to `value` (windows-1252), or without a value the file
  /// without the key. All other lines stay byte for byte, also those with characters that
  /// windows-1252 lacks.
  std::string WithValue(std::string file, std::string_view section, std::string_view key,
                        std::optional<std::string_view> value) const;

 private:
  enum class Kind { Windows1252, Utf8, Utf16 };

  std::string Encoded(std::string_view text) const;
  std::size_t Offset(std::string_view file, std::size_t index) const;

  Kind kind_ = Kind::Windows1252;
  std::size_t mark_ = 0;  // length of the byte order mark
};

}  // namespace zek
