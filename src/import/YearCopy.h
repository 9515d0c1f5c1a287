#pragma once

#include "import/ImportedDates.h"

namespace zek {

/// What becomes of a date that is copied to another year.
enum class YearCopy {
  SameDates,  // the same day of the same month
  Holidays,   // a holiday of Sweden, and a day that moves with one, is where it is that year
};

/// Returns the dates that a calendar has in year `from`, with their types, as dates of year `to`.
/// Each is named by the date that it comes from, and by the holiday ("2026-04-05 Påskdagen").
/// 29 February is skipped where it does not exist. Besides the holidays, these days move: Maundy
/// Thursday, the eves of Easter, Pentecost and All Saints' Day, and the day after Ascension Day.
ImportedDates YearDates(const CalendarTable& table, int from, int to, YearCopy copy,
                        const ImportWindow& window);

}  // namespace zek
