#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "lang/LanguageTexts.h"
#include "lang/Message.h"
#include "system/Files.h"
#include "system/Prompts.h"

namespace zek {

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
