#pragma once

#include <string>
#include <vector>

#include "formats/ExceptionTable.h"
#include "formats/RecordLabels.h"

namespace zek {

/// The table as lines of the batch export, without their line ends: one for each row in use, the
/// labels and the texts of its six boxes in the order start date, time and value, stop date, time
/// and value, with ";" between them.
std::vector<std::string> ExceptionRecords(const ExceptionTable& table, const RecordLabels& labels,
                                          char decimalSeparator);

}  // namespace zek
