#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "plan/Plan.h"

namespace zek {

/// A text file of records, one a line, with tabs between their fields: a first line that names the
/// format, and a last line with a checksum of all lines before it.
std::string BuildRecords(std::string_view format, std::span<const std::string> records);

/// Joins fields to a record. Control characters are shown, so that none can end a field.
std::string RecordOf(std::initializer_list<std::string_view> fields);

struct Records {
  std::vector<std::string> lines;  // between the first and the last line
  std::size_t bad = 0;             // the number of the first bad line; 0: the file is whole
  std::string checksum;
};
Records ReadRecords(std::string_view format, std::string_view file);

/// The text of a plan file, windows-1252, with lines that end in CR LF. Its records are
///   catalogue KIND TOPIC TYPE ADDRESS TAG LINES_TO_SEND
///   control NAME            of the catalogue above
///   was LINE, will LINE     of the control above
std::string BuildPlanFile(const Plan& plan);

struct PlanReading {
  Plan plan;
  std::size_t bad = 0;   // the number of the first bad line; 0: the plan is whole
  std::string checksum;  // names the plan
};
PlanReading ReadPlanFile(std::string_view file);

}  // namespace zek
