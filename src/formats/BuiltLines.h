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

/// The error when a table can't be turned into catalogue lines: a text number (lang/TextNumbers.h)
/// and the values for its places %1 to %3.
struct BuildError {
  std::int32_t text = 0;
  std::array<std::string, 3> values;

  std::string MessageIn(const LanguageTexts& texts) const {
    return Message(texts.Text(text), {values[0], values[1], values[2]});
  }
};

/// All lines of a catalogue, or the error that prevented them.
using BuiltLines = std::variant<std::vector<std::string>, BuildError>;

/// Returns an error if a catalogue of `lines` lines can't have one more line with this number.
/// `place` returns a description of that line for the message.
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

/// Returns an error if a value does not fit its columns: a truncated value would be a different
/// one.
template <class Place>
std::optional<BuildError> CheckValue(const std::string& value, std::size_t width, Place place) {
  if (value.size() <= width) return std::nullopt;
  return BuildError{text::kValueTooLong, {value, place(), std::to_string(width)}};
}

}  // namespace zek
