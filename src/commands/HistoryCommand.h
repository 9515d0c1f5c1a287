#pragma once

#include "commands/Commands.h"

namespace zek::cli {

/// Lists the earlier local copies of a catalogue, the newest first; or compares the one that ID
/// names with the local copy (lines only in it: "- ", only in the local copy: "+ "); or puts it in
/// the place of the local copy.
ExitStatus HistoryOfCatalogue(Console& console, const CatalogueId& id, const Arguments& arguments);

}  // namespace zek::cli
