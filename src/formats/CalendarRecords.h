#pragma once

#include <string>
#include <vector>

#include "formats/CalendarTable.h"
#include "formats/RecordLabels.h"

namespace zek {

/// The calendar as lines of the batch export, without their line ends: one for each entry, in the
/// order of the table, "object;duc;2026-12-24;SD1".
std::vector<std::string> CalendarRecords(const CalendarTable& table, const RecordLabels& labels);

}  // namespace zek
