#pragma once

#include <string>
#include <vector>

#include "formats/CalendarTable.h"
#include "formats/ExceptionTable.h"
#include "formats/WeekdayTable.h"

namespace zek {

/// The first columns of an export record: `BatchObject`, `BatchDuc` and `BatchDestination`.
struct RecordLabels {
  std::string object;
  std::string duc;
  std::string destination;
};

/// The table as lines of the batch export, without their line ends: for every row index with a
/// cell that is not empty four lines (start and stop times, start and stop values), each with the
/// texts that the editor shows for Monday to Sunday and SD1 to SD7, every one followed by ";".
std::vector<std::string> WeekdayRecords(const WeekdayTable& table, const RecordLabels& labels,
                                        char decimalSeparator);

/// The calendar as lines of the batch export, without their line ends: one for each entry, in the
/// order of the table, "object;duc;2026-12-24;SD1".
std::vector<std::string> CalendarRecords(const CalendarTable& table, const RecordLabels& labels);

/// The table as lines of the batch export, without their line ends: one for each row in use, the
/// labels and the texts of its six boxes in the order start date, time and value, stop date, time
/// and value, with ";" between them.
std::vector<std::string> ExceptionRecords(const ExceptionTable& table, const RecordLabels& labels,
                                          char decimalSeparator);

}  // namespace zek
