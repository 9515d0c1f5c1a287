#pragma once

#include <istream>
#include <optional>
#include <string>

#include "settings/Profile.h"

namespace zek {

/// The password of the tag server, from the setting `Password` in [General].
struct TagPassword {
  enum class Kind { None, Plain, Encrypted, Lost };
  Kind kind = Kind::None;
  std::string text;  // windows-1252; "" without a password, or if it is lost
};

/// Reads the password. It is lost if it was encrypted on another computer, or is damaged.
TagPassword ReadTagPassword(const Profile& profile);

/// Replaces the password in the settings by this one (windows-1252), encrypted; everything else in
/// the file stays as it is. Returns the error, if any; nothing has changed then.
std::optional<FileError> WriteTagPassword(Profile& profile, std::string_view password);

}  // namespace zek
