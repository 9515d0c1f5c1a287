#pragma once

#include <string_view>

#include "import/ImportedDates.h"

namespace zek {

/// Reads rows of a date, a day type and a name, separated by tabs, ";" or ",": the first of them
/// that the first line has. Dates are YYYY-MM-DD; type and name may be missing. Columns may have
/// headings ("date", "type", "name", also Swedish); other columns are then passed over. Fields may
/// be quoted.
ImportedDates ReadCsvDates(std::string_view bytes, const ImportWindow& window);

}  // namespace zek
