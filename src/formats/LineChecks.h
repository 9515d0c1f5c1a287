#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "formats/BuiltLines.h"
#include "formats/CatalogueLimits.h"
#include "lang/TextNumbers.h"

namespace zek {

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
