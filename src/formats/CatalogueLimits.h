#pragma once

#include <cstddef>

namespace zek {

/// The line buffer of a catalogue has places 0 to 200: no controller's catalogue is longer.
inline constexpr std::size_t kMaxCatalogueLines = 201;

}  // namespace zek
