#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

#include "lang/LanguageTexts.h"
#include "system/Files.h"

namespace zek {

/// `pattern` with %1 to %9 replaced by the values; a place without a value stays as it is.
std::string Message(std::string_view pattern, std::initializer_list<std::string_view> values);

/// What to show for a file that could not be read or written: its name and the reason.
std::string FileMessage(const LanguageTexts& texts, const FileError& error);

/// What to show for a section of the settings file that is longer than its buffer.
std::string SectionCutMessage(const LanguageTexts& texts, const std::string& section,
                              std::size_t length);

}  // namespace zek
