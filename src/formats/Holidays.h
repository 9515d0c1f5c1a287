#pragma once

#include "formats/CalendarTable.h"

namespace zek {

/// The years without a fixed list: they have no holidays, or the public ones of Sweden.
enum class OtherYears { None, Sweden };

/// True for the public holidays that the program knows: fixed lists for the years 1992 to 2003,
/// some of them incomplete. Holidays only change how a date is drawn.
bool IsHoliday(const CalendarDate& date, OtherYears others = OtherYears::None);

}  // namespace zek
