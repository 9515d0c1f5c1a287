#pragma once

#include "catalogue/Catalogues.h"

namespace zek {

/// How a write ended. Until it has begun, the controller still has what it had.
enum class SendOutcome { NotBegun, Failed, Sent };

/// Sends a catalogue to its controller in at most three attempts, with the pauses of section
/// "SaveDelay". `Sent` means that the link held through every step and no line was refused.
SendOutcome SendCatalogue(const CatalogueId& id, const CatalogueDraft& draft,
                          const CatalogueParts& parts);

/// True when every pause fits; else the first that does not was shown.
bool CheckSendDelays(const NumberReader& numbers);

}  // namespace zek
