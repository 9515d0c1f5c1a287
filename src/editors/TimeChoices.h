#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// The times to choose from: "00:00", "00:15" to "24:00".
std::vector<std::string> QuarterHours();

/// Returns the quarter hour before (`step` -1) or after (1) a time, but not beyond the day; any
/// other text unchanged.
std::string QuarterBeside(std::string_view time, int step);

}  // namespace zek
