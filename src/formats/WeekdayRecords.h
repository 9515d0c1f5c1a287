#pragma once

#include <string>
#include <vector>

#include "formats/RecordLabels.h"
#include "formats/WeekdayTable.h"

namespace zek {

/// The table as lines of the batch export, without their line ends: for every row index with a
/// cell that is not empty four lines (start and stop times, start and stop values), each with the
/// texts that the editor shows for Monday to Sunday and SD1 to SD7, every one followed by ";".
std::vector<std::string> WeekdayRecords(const WeekdayTable& table, const RecordLabels& labels,
                                        char decimalSeparator);

}  // namespace zek
