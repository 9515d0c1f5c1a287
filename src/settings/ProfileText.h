#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "settings/Profile.h"

namespace zek {

/// The rules of the platform's profile calls, on the text of a settings file:
/// - lines end in CR LF, LF or CR; blanks and tabs at both ends of lines, names and values go;
/// - a section's name stands between "[" and the last "]" of its line; of sections with the same
///   name only the first is seen, of keys with the same name in it as well;
/// - one pair of equal quotes (" or ') around a value goes when a single value is read;
/// - lines that begin with ";" are comments of a section; a ";" inside a value is data.

/// An empty name is none; the platform's calls can crash of it.
bool IsProfileName(std::string_view name);

/// What a read of one value gives: at most 127 characters.
std::string ProfileCut(std::string value);

/// What it gives for a missing key: the default without blanks at its end.
std::string ProfileDefault(std::string_view fallback);

/// What keeps a value from being written; "" when nothing does.
std::string ProfileRefusal(std::string_view section, std::string_view key, std::string_view value);

/// The value of a key; nothing when it is missing or its line has no "=".
std::optional<std::string> ProfileValue(std::string_view text, std::string_view section,
                                        std::string_view key);

/// The entries of a section as they fit a buffer of `bufferSize` characters with their ends.
ProfileSection ProfileSectionText(std::string_view text, std::string_view section,
                                  std::size_t bufferSize);

/// The text with the key set to `value`: its first line replaced, or a line added after the
/// section's last non-blank line, or the section appended. All other bytes stay.
std::string ProfileWithValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// windows-1252 in any case: a file that begins with a byte order mark is converted to it.
std::string ProfileBytes(std::string file);

}  // namespace zek
