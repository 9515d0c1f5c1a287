#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zek {

/// Where the lines of a catalogue come from. A local copy may hold what was never sent.
enum class LinesFrom { Nowhere, Controller, LocalCopy };

/// What a catalogue says: at most `kMaxCatalogueLines` lines as a controller lists them.
struct CatalogueContent {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;  // the ".DFV" value; none where it is unknown or does not exist
  LinesFrom from = LinesFrom::Nowhere;
  std::size_t linesDropped = 0;  // listed lines beyond the limit
};

}  // namespace zek
