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

/// Replaces %1 to %9 in `pattern` by the values; a placeholder without a value stays.
std::string Message(std::string_view pattern, std::initializer_list<std::string_view> values);

/// Returns the message for a failed file operation: the file's path and the reason.
std::string FileMessage(const LanguageTexts& texts, const FileError& error);

/// Returns the message for a section of the settings file that is longer than its buffer.
std::string SectionCutMessage(const LanguageTexts& texts, const std::string& section,
                              std::size_t length);

/// Message boxes in the language of the session. Callers pass the numbers of texts
/// (lang/TextNumbers.h) and the values for their placeholders %1 to %9.
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

  /// Shows the message for a failed file operation.
  void Tell(const FileError& error) const {
    prompts.Show(Icon::Exclamation, FileMessage(texts, error));
  }
};

}  // namespace zek
