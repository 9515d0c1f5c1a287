#pragma once

#include <string_view>

#include "import/ImportedDates.h"

namespace zek {

/// Reads the dates in a calendar file (.ics) or in a table (.csv); its content tells which it is.
ImportedDates ReadImportFile(std::string_view bytes, const ImportWindow& window,
                             const ImportClock& now);

}  // namespace zek
