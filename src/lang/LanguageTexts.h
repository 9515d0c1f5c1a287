#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "system/Files.h"

namespace zek {

/// The numbered texts of one language file ("zek_lang." and three digits, number "=" text).
class LanguageTexts {
 public:
  /// Replaces the table by the lines of a language file. Lines without "=" are ignored; a text
  /// ends at the second "="; of a number that occurs twice the first text counts.
  void Read(std::string_view file);

  /// The text with that number. Numbers from 500 up fall back to the built-in Swedish; any other
  /// number that the file lacks gives "Invalid Text (" number ")".
  std::string Text(std::int32_t number) const;

 private:
  std::unordered_map<std::int32_t, std::string> texts_;
};

/// A language that the language form offers: the number of its file and its own name (text 0).
struct LanguageChoice {
  int number = 0;
  std::string name;
};

/// The languages whose files "zek_lang.NNN" lie in `directory` (any case of the name), in the
/// order of their file names. A file without a "0=" line adds nothing.
std::vector<LanguageChoice> ListLanguages(const Files& files, const std::string& directory);

/// "zek_lang." and the number as three digits or more.
std::string LanguageFileName(int number);

}  // namespace zek
