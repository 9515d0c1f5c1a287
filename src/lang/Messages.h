#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "lang/LanguageTexts.h"
#include "system/Files.h"
#include "system/Prompts.h"

namespace zek {

/// `pattern` with %1 to %9 replaced by the values; a place without a value stays as it is.
std::string Message(std::string_view pattern, std::initializer_list<std::string_view> values);

/// What to show for a file that could not be read or written: its name and the reason.
std::string FileMessage(const LanguageTexts& texts, const FileError& error);

/// What to show for a section of the settings file that is longer than its buffer.
std::string SectionCutMessage(const LanguageTexts& texts, const std::string& section,
                              std::size_t length);

/// Message boxes in the language of the session. Texts are given by their numbers
/// (lang/TextNumbers.h), their places %1 to %9 by `values`.
struct Messages {
  const LanguageTexts& texts;
  Prompts& prompts;

  std::string Text(std::int32_t number) const { return texts.Text(number); }
  std::string Text(std::int32_t number, std::initializer_list<std::string_view> values) const {
    return Message(texts.Text(number), values);
  }

  void Tell(Icon icon, std::int32_t number,
            std::initializer_list<std::string_view> values = {}) const {
    prompts.Show(icon, Text(number, values));
  }

  /// Shows that a file could not be read or written, and why.
  void Tell(const FileError& error) const {
    prompts.Show(Icon::Exclamation, FileMessage(texts, error));
  }
};

}  // namespace zek
