#pragma once

#include <vector>

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueFetch.h"

namespace zek {

/// What a controller has of a catalogue that was sent to it.
struct Verification {
  FetchOutcome outcome = FetchOutcome::Failed;
  CatalogueContent fetched;             // `LinesFrom::Nowhere` when it did not come whole
  std::vector<CatalogueChange> faults;  // none when it means what was sent
};

/// Fetches a catalogue that was just sent and compares the two.
Verification VerifyCatalogue(const CatalogueId& id, const CatalogueDraft& sent,
                             const CatalogueParts& parts, const FetchDelays& delays);

/// Shows how it ended; true when the controller has what was sent.
bool TellVerification(const Verification& verification, const Messages& messages);

}  // namespace zek
