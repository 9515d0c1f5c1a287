#pragma once

#include <cstdint>
#include <map>
#include <regex>
#include <string>

#include "lang/LanguageTexts.h"
#include "lang/TextNumbers.h"

namespace zek::test {

/// The names of the text numbers, "kCatalogueFull".
inline const std::map<int, std::string>& TextNames() {
  static const std::map<int, std::string> names = {
#define ZEK_TEXT(name, number) {number, #name},
#define ZEK_BUILT_IN(name, number, swedish) {number, #name},
#include "lang/Texts.def"
#undef ZEK_TEXT
#undef ZEK_BUILT_IN
  };
  return names;
}

/// The name of a text, or its number if it has no name.
inline std::string TextName(std::int32_t number) {
  const auto found = TextNames().find(number);
  return found == TextNames().end() ? std::to_string(number) : found->second;
}

/// A language file in which each text is its own name and its placeholders.
inline std::string NamedLanguage() {
  std::string language;
  for (const auto& [number, name] : TextNames())
    language += "\n" + std::to_string(number) + "=" + name + " %1 %2 %3 %4 %5 %6";
  for (int day = 1; day < 7; ++day)  // numbers that follow a named one
    language += "\n" + std::to_string(text::kMonday + day) + "=kMonday+" + std::to_string(day);
  return language;
}

/// That language, except for the given texts.
inline LanguageTexts NamedTexts(const std::string& given) {
  LanguageTexts texts;
  texts.Read(given + NamedLanguage());
  return texts;
}

/// A message without its unused placeholders.
inline std::string Filled(const std::string& message) {
  return std::regex_replace(message, std::regex(" %\\d"), "");
}

}  // namespace zek::test
