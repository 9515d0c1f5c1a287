#pragma once

#include <vector>

#include "catalogue/CatalogueChanges.h"

namespace zek {

/// What a controller has of a catalogue that was sent to it.
struct Verification {
  bool fetched = false;                 // whole; else nothing is known
  bool stopped = false;                 // the user did not want to wait for it
  std::vector<CatalogueChange> faults;  // none when it means what was sent
};

/// Fetches the catalogue that `proc.transfer` holds, which was just sent, and compares the two.
/// `proc.transfer` holds afterwards what was sent; its `Last` is what was fetched.
Verification VerifyCatalogue(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays);

/// Tells of it; true when the controller has what was sent.
bool TellVerification(ZV_Proc& proc, const Verification& verification);

}  // namespace zek
