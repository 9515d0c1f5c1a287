#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "plant/Plant.h"

namespace zek::sim {

/// Reads the text of an OUTSTATION.TXT. Returns "" or what is wrong, as the one below.
std::string ReadOutstationText(std::string_view text, Outstation& outstation);

/// Reads a catalogue text. Returns "" or what is wrong ("line 7: ...");
/// the parts of such a text are told in PlantFolder.h. `defaultValue` receives the
/// ".DFV" line's value when there is one.
std::string ReadPlantCatalogue(std::string_view text, PlantCatalogue& catalogue,
                               std::optional<std::string>& defaultValue);

/// The text that `ReadPlantCatalogue` reads.
std::string BuildPlantCatalogue(const PlantCatalogue& catalogue,
                                const std::optional<std::string>& defaultValue);

}  // namespace zek::sim
