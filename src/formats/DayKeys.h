#pragma once

#include <array>
#include <string_view>

namespace zek {

/// The day keys of catalogue lines: Monday to Sunday, then the special days.
inline constexpr auto kDayKeys = std::to_array<std::string_view>(
    {"MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"});

}  // namespace zek
