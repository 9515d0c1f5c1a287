#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueFetch.h"
#include "catalogue/CatalogueSend.h"
#include "catalogue/LineChanges.h"

namespace zek {

/// What a controller should have after a write.
struct Expected {
  LinesToSend own;                  // the lines and the value of the control that was saved
  std::vector<std::string> others;  // the lines of the other controls
};

/// The result of reading back a catalogue that was sent.
struct Verification {
  FetchOutcome outcome = FetchOutcome::Failed;
  CatalogueContent fetched;              // `LinesFrom::Nowhere` if incomplete
  std::vector<CatalogueChange> faults;   // own entries that are missing or different
  std::vector<CatalogueChange> left;     // own entries that should be gone
  FoundAgain others;                     // those with "*" are not among the missing ones
  std::vector<std::string> starredGone;  // missing lines of others that have a "*"
  std::string linkFault;                 // why the link failed; "" if it did not

  bool HasAllOthers() const {
    return others.missing.empty() && others.different.empty() && starredGone.empty();
  }

  bool IsMade() const { return fetched.from != LinesFrom::Nowhere; }
};

/// Fetches a catalogue that was just sent. Own entries are compared by meaning, the lines of others
/// by number and fields.
Verification VerifyCatalogue(const CatalogueId& id, const Expected& expected,
                             const CatalogueParts& parts, const FetchDelays& delays);

}  // namespace zek
