#pragma once

#include "catalogue/Catalogues.h"

namespace zek {

/// The result of a write. With `NotBegun` the controller's catalogue is unchanged.
enum class SendOutcome { NotBegun, Failed, Sent };

/// Sends a catalogue to its controller in at most three attempts, with the pauses of section
/// "SaveDelay". `Sent` means that the link stayed up through every step and no line was refused.
SendOutcome SendCatalogue(const CatalogueId& id, const CatalogueDraft& draft,
                          const CatalogueParts& parts);

/// Returns false, after a message about the first one, if a pause does not fit 16 bits.
bool CheckSendDelays(const NumberReader& numbers);

}  // namespace zek
