#pragma once

#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/Catalogues.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// Changes in words: the number of each kind in one line, and a list with headings.
struct ChangeTexts {
  std::string Summary;  // also reports that nothing changes at the controller
  std::string Details;  // lines end in CR LF; empty without changes
};

/// Describes what a write will change (see `ChangesBetween`).
ChangeTexts TextsOfChanges(const std::vector<CatalogueChange>& changes, const LanguageTexts& texts);

/// Describes how the controller differs from what was sent (see `FaultsOf`).
ChangeTexts TextsOfFaults(const std::vector<CatalogueChange>& faults, const LanguageTexts& texts);

/// Asks whether to send a catalogue: shows `question` and the changes against `last`, the catalogue
/// as it was last read.
bool AskSend(const std::string& question, const CatalogueContent& last, const CatalogueDraft& draft,
             const CatalogueRules& rules, const Messages& messages);

}  // namespace zek
