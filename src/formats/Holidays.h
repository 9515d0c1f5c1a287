#pragma once

#include "formats/CalendarTable.h"

namespace zek {

/// True for the public holidays that the program knows: fixed lists for the years 1992 to 2003,
/// some of them incomplete. Other years have no holidays. Holidays only change how a date is drawn.
bool IsHoliday(const CalendarDate& date);

}  // namespace zek
