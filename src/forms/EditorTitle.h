#pragma once

#include <string>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"

namespace zek {

/// The title of the selected node's editor: the kind, the control and its building, then what the
/// editor can't do: "Undantag: Ventilation aula [AHU1], Skolan (endast visning)".
std::string EditorTitle(const ZV_Proc& proc, Catalogue catalogue, bool viewOnly);

/// A message for an object's own node: whose lines its catalogue contains. "" for a time control.
std::string WholeCatalogueText(const ZV_Proc& proc, const CatalogueContent& content);

}  // namespace zek
