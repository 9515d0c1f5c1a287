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

/// Returns the table as lines of the batch export, without line ends. Each row index with a cell
/// that is not empty gives four lines: start times, stop times, start values, stop values. Each
/// line has the editor's texts for Monday to Sunday and SD1 to SD7, each followed by ";".
std::vector<std::string> WeekdayRecords(const WeekdayTable& table, const RecordLabels& labels,
                                        char decimalSeparator);

/// Returns the calendar as lines of the batch export, without line ends: one for each entry, in the
/// order of the table, "object;duc;2026-12-24;SD1".
std::vector<std::string> CalendarRecords(const CalendarTable& table, const RecordLabels& labels);

/// Returns the table as lines of the batch export, without line ends: one for each row in use. A
/// line has the labels and the texts of the six boxes (start date, time and value, then stop date,
/// time and value), separated by ";".
std::vector<std::string> ExceptionRecords(const ExceptionTable& table, const RecordLabels& labels,
                                          char decimalSeparator);

}  // namespace zek
