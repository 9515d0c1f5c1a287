#pragma once

#include "commands/Commands.h"

namespace zek::cli {

/// Exports the kinds that the operands name, or all three, of every time control to files in
/// "Batch". Prints the names of the files; what could not be exported goes to standard error.
ExitStatus Export(Console& console, const Arguments& arguments);

}  // namespace zek::cli
