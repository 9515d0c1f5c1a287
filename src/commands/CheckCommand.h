#pragma once

#include <cstddef>

#include "commands/Commands.h"

namespace zek::cli {

/// Reads FILE into the editor's model of the node and prints its record lines, or with --rebuild
/// the lines that saving the unchanged model would send. A line that was not read ends it with
/// status 1; what was read up to there is printed all the same.
ExitStatus Check(Console& console, const CatalogueId& id, std::size_t node,
                 const Arguments& arguments);

}  // namespace zek::cli
