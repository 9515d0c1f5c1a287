#pragma once

#include <libical/ical.h>

#include "import/ImportedDates.h"

namespace zek {

/// False for a repetition that has no day in a long time from `start` on: libical takes very long
/// to find that out.
bool MayOccur(const icalrecurrencetype& rule, const CalendarDate& start);

}  // namespace zek
