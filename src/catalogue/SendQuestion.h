#pragma once

#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/Catalogues.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// Changes in words: how many of each kind in one line, and line by line with headings between.
struct ChangeTexts {
  std::string Summary;  // says so when nothing changes at the controller
  std::string Details;  // lines end in CR LF; empty when there are no changes at all
};

/// What a write will change (see `ChangesBetween`).
ChangeTexts TextsOfChanges(const std::vector<CatalogueChange>& changes, const LanguageTexts& texts);

/// How the controller differs from what was sent (see `FaultsOf`).
ChangeTexts TextsOfFaults(const std::vector<CatalogueChange>& faults, const LanguageTexts& texts);

/// Asks whether to send a catalogue: `question`, and what that changes against `last`, which was
/// last read of it.
bool AskSend(const std::string& question, const CatalogueContent& last, const CatalogueDraft& draft,
             const CatalogueRules& rules, const Messages& messages);

}  // namespace zek
