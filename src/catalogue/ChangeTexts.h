#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueChanges.h"
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

}  // namespace zek
