#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "formats/CatalogueLine.h"
#include "lang/LanguageTexts.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

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

/// Why a catalogue of `lines` lines can't be given another one with this number. `place` tells
/// which line it would be, for the message.
template <class Place>
std::optional<BuildError> CheckLine(std::size_t lines, int number, int largestNumber, Place place) {
  if (lines >= kMaxCatalogueLines) {
    return BuildError{text::kCatalogueFull, {std::to_string(kMaxCatalogueLines), place(), {}}};
  }
  if (number > largestNumber) {
    return BuildError{text::kLineNumberTooLarge,
                      {std::to_string(number), std::to_string(largestNumber), {}}};
  }
  return std::nullopt;
}

/// Why a value does not fit its columns: cut, it would be another value.
template <class Place>
std::optional<BuildError> CheckValue(const std::string& value, std::size_t width, Place place) {
  if (value.size() <= width) return std::nullopt;
  return BuildError{text::kValueTooLong, {value, place(), std::to_string(width)}};
}

}  // namespace zek
