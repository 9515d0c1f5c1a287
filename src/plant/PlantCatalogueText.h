#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "plant/Plant.h"

namespace zek::sim {

/// Parses the text of an OUTSTATION.TXT. Returns "" or the error ("line 7: ...").
std::string ReadOutstationText(std::string_view text, Outstation& outstation);

/// Parses a catalogue text; PlantFolder.h describes its format. Returns "" or the error
/// ("line 7: ..."). Sets `defaultValue` if the text has a ".DFV" line.
std::string ReadPlantCatalogue(std::string_view text, PlantCatalogue& catalogue,
                               std::optional<std::string>& defaultValue);

/// Builds the text that `ReadPlantCatalogue` parses.
std::string BuildPlantCatalogue(const PlantCatalogue& catalogue,
                                const std::optional<std::string>& defaultValue);

}  // namespace zek::sim
