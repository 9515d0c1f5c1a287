#pragma once

#include <optional>
#include <vector>

#include "import/ImportedDates.h"

namespace zek {

enum class ImportEffect { Add, Already, Conflict };

/// What one imported date does to a calendar.
struct PreviewLine {
  ImportEffect effect = ImportEffect::Add;
  ImportedDate date;                  // with its day type
  std::int16_t present = kNoDayType;  // of a conflict: the type that the date has
};

/// Compares dates with a calendar, by date. Dates without a type get `type`. A date that comes
/// twice is compared with its first type the second time.
std::vector<PreviewLine> PreviewImport(const CalendarTable& table, std::vector<ImportedDate> dates,
                                       std::int16_t type);

/// Returns the calendar with the dates to add and those conflicts for which `replaces` is true (by
/// the lines' places; none beyond its end). Returns nothing if the calendar is too full.
std::optional<CalendarTable> WithImported(CalendarTable table,
                                          const std::vector<PreviewLine>& lines,
                                          const std::vector<bool>& replaces = {});

}  // namespace zek
