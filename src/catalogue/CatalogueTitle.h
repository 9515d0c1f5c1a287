#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "catalogue/Catalogue.h"
#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// In the order in which forms and reports show them.
inline constexpr std::array kShownCatalogues{Catalogue::Wdc, Catalogue::Sdc, Catalogue::Ovc};

/// The number of the text that names the kind: "Veckodagar", "Specialdagar", "Undantag".
std::int32_t KindTitle(Catalogue catalogue);
/// Names a catalogue for a reader: the kind, the control and its building: "Undantag: Ventilation
/// aula [AHU1], Skolan". A catalogue of all controls names the object instead.
std::string CatalogueTitle(const CatalogueId& id, const ObjectTree& tree, const TopicTable& topics,
                           const LanguageTexts& texts);
/// "Undantag SKOLA/AHU1", "Specialdagar SKOLA"
std::string ShortTitle(const CatalogueId& id, const LanguageTexts& texts);

}  // namespace zek
