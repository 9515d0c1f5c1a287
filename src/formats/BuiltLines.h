#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "lang/LanguageTexts.h"
#include "lang/Message.h"

namespace zek {

/// Why a table could not be turned into catalogue lines: a text number (lang/TextNumbers.h) and
/// what stands in its places %1 to %3.
struct BuildError {
  std::int32_t text = 0;
  std::array<std::string, 3> values;

  std::string MessageIn(const LanguageTexts& texts) const {
    return Message(texts.Text(text), {values[0], values[1], values[2]});
  }
};

/// The lines of a catalogue, all of them, or why there are none.
using BuiltLines = std::variant<std::vector<std::string>, BuildError>;

}  // namespace zek
