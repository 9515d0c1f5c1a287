#pragma once

#include <optional>

#include "catalogue/Catalogues.h"

namespace zek {

/// Saves one catalogue of a node: stores the local copy, asks, sends, and checks what the
/// controller has of it. See `Catalogues::SaveCatalogue`.
SaveResult SaveTheCatalogue(const CatalogueId& id, const CatalogueDraft& draft,
                            const CatalogueParts& parts);

/// Looks for lines of a shared catalogue that a write lost and that was not finished. `fetched` is
/// the controller's catalogue now. Names the missing lines and, unless the program may not write,
/// offers to send them again with the whole catalogue. Returns what the controller has then;
/// nothing, after a message, if that is not known.
std::optional<CatalogueContent> MendUnfinished(const CatalogueId& id, CatalogueContent fetched,
                                               const CatalogueParts& parts);

}  // namespace zek
