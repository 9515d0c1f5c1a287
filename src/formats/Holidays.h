#pragma once

#include "formats/CalendarTable.h"

namespace zek {

/// True for the public holidays that the program knows: fixed lists for the years 1992 to 2003,
/// not all of them complete. No other year has any. Holidays only change how a date is drawn.
bool IsHoliday(const CalendarDate& date);

}  // namespace zek
