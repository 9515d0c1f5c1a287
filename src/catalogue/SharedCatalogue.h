#pragma once

#include <span>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/BuiltLines.h"
#include "formats/LineOwner.h"
#include "settings/Settings.h"

namespace zek {

/// Splits the lines of a catalogue by the controls that they belong to, those of a group in the
/// group's order. All lines are own ones if the catalogue is not part of a shared one.
LinesByOwner SplitLines(const CatalogueId& id, std::span<const std::string> lines);

/// Returns the lines of other controls that `before` has and `now` lacks; those with "*" don't
/// count.
std::vector<std::string> LostOthers(const CatalogueId& id, std::span<const std::string> before,
                                    std::span<const std::string> now);

/// Gives the lines of the controls of `id` numbers that no line of another control in `listing`
/// has. Returns an error if a number does not fit, and nothing, after a message, if a setting can't
/// be used.
std::optional<BuiltLines> NumberOwnLines(const CatalogueId& id, std::span<const std::string> own,
                                         std::span<const std::string> listing,
                                         const NumberReader& numbers);

}  // namespace zek
