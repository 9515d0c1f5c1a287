#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "settings/Profile.h"

namespace zek {

/// The rules of the platform's profile calls, on the text of a settings file:
/// - lines end in CR LF, LF or CR; blanks and tabs at both ends of lines, names and values are
///   removed;
/// - a section's name is between "[" and the last "]" of its line; only the first of several
///   sections with the same name counts, and only the first of several equal keys in it;
/// - reading a single value removes one pair of equal quotes (" or ') around it;
/// - lines that begin with ";" are comments in a section; a ";" inside a value is data.

/// False for an empty or blank name, with which the platform's calls can crash.
bool IsProfileName(std::string_view name);

/// Cuts a value to 127 characters, the most that reading one value returns.
std::string ProfileCut(std::string value);

/// Returns the value for a missing key: the default without trailing blanks, cut likewise.
std::string ProfileDefault(std::string_view fallback);

/// Returns why a value can't be written, or "" if it can.
std::string ProfileRefusal(std::string_view section, std::string_view key, std::string_view value);

/// Returns the value of a key, or nothing if the key is missing or its line has no "=".
std::optional<std::string> ProfileValue(std::string_view text, std::string_view section,
                                        std::string_view key);

/// Returns the entries of a section that fit, with their ends, in `bufferSize` characters.
ProfileSection ProfileSectionText(std::string_view text, std::string_view section,
                                  std::size_t bufferSize);

/// One change of a text: `text` replaces `length` characters from `at` on.
struct ProfileChange {
  std::size_t at = 0;
  std::size_t length = 0;
  std::string text;
};

/// Returns the change that sets the key to `value`: it replaces the key's first line, or adds a
/// line after the section's last non-blank line, or appends the section. Without a value it removes
/// the key's first line.
ProfileChange ChangeToValue(std::string_view text, std::string_view section, std::string_view key,
                            std::optional<std::string_view> value);

}  // namespace zek
