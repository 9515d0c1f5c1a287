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
  /// Replaces all texts by those of a language file. Lines without "=" are ignored; a text ends at
  /// a second "="; if a number occurs twice, the first text counts.
  void Read(std::string_view file);

  /// Returns the text with that number. If the file lacks it, numbers from 500 up yield the
  /// built-in Swedish text and all others "Invalid Text (" number ")".
  std::string Text(std::int32_t number) const;

 private:
  std::unordered_map<std::int32_t, std::string> texts_;
};

/// A language in the language form: the number of its file and its own name (text 0).
struct LanguageChoice {
  int number = 0;
  std::string name;
};

/// Lists the languages of the files "zek_lang.NNN" in `directory` (any case), sorted by file name.
/// Files without a "0=" line are left out.
std::vector<LanguageChoice> ListLanguages(const Files& files, const std::string& directory);

/// Returns "zek_lang." followed by the number with at least three digits.
std::string LanguageFileName(int number);

}  // namespace zek
