#pragma once

#include <string>

#include "catalogue/CatalogueContent.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/Catalogues.h"

namespace zek {

/// Asks whether to send a catalogue: `question`, and what that changes against `last`, which was
/// last read of it.
bool AskSend(const std::string& question, const CatalogueContent& last, const CatalogueDraft& draft,
             const CatalogueRules& rules, const Messages& messages);

}  // namespace zek
