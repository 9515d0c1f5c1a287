#pragma once

#include <optional>
#include <string>

#include "catalogue/CatalogueEntries.h"

// What was last read of a catalogue, which a write is compared with (see `LastRead`).
namespace zek {

/// The value that a write sends with `proc.transfer.CatalogueLines`; nothing where it sends none: a
/// local copy of exceptions holds no value, and what the controller has is then left alone.
std::optional<std::string> DfvToSend(const ZV_Proc& proc, Catalogue catalogue);

/// `proc.transfer` holds what was just read of the selected node's catalogue.
void RememberRead(ZV_Proc& proc, Catalogue catalogue);

/// The same for what the controller has just taken.
void RememberSent(ZV_Proc& proc, Catalogue catalogue);

/// The local copy is what was last read, while `proc.transfer` holds what is to be sent. Nothing is
/// known when there is none, or none that can be used.
void RememberLocalCopy(ZV_Proc& proc, Catalogue catalogue);

/// What was last read of the selected node's catalogue, `LinesFrom::Nowhere` when nothing was.
LastRead LastReadOf(const ZV_Proc& proc, Catalogue catalogue);

}  // namespace zek
