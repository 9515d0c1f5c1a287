#pragma once

#include <string_view>

#include "import/ImportedDates.h"

namespace zek {

/// Reads the days of the events in a calendar file, with their repetitions. Dates count as they are
/// written, whatever their zone; an event has every day that it touches. Two seconds are given to
/// all repetitions of the file.
ImportedDates ReadIcsDates(std::string_view bytes, const ImportWindow& window,
                           const ImportClock& now);

}  // namespace zek
