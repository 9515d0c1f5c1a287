#pragma once

#include <string>

#include "catalogue/Catalogue.h"

namespace zek {

/// Asks whether to send `proc.transfer.CatalogueLines`: `question`, and what that changes against
/// what was last read of the catalogue.
bool AskSend(ZV_Proc& proc, Catalogue catalogue, const std::string& question);

}  // namespace zek
