#pragma once

#include <vector>

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueFetch.h"

namespace zek {

/// The result of reading back a catalogue that was sent.
struct Verification {
  FetchOutcome outcome = FetchOutcome::Failed;
  CatalogueContent fetched;             // `LinesFrom::Nowhere` if incomplete
  std::vector<CatalogueChange> faults;  // empty if the meaning is the same
};

/// Fetches a catalogue that was just sent and compares the two.
Verification VerifyCatalogue(const CatalogueId& id, const CatalogueDraft& sent,
                             const CatalogueParts& parts, const FetchDelays& delays);

/// Shows the result; returns true when the controller has what was sent.
bool TellVerification(const Verification& verification, const Messages& messages);

}  // namespace zek
