#pragma once

#include <cstdint>

/// The language texts that the three catalogue editors share (see lang/TextNumbers.h).
namespace zek::text {

inline constexpr std::int32_t kLinesLost = 650;  // %1 lines
inline constexpr std::int32_t kLinesLostTitle = 651;
inline constexpr std::int32_t kCatalogueFull = 652;       // %1 lines at most, %2 the line left out
inline constexpr std::int32_t kLineNumberTooLarge = 653;  // %1 the number, %2 the largest
inline constexpr std::int32_t kValueTooLong = 654;  // %1 the value, %2 its line, %3 characters

}  // namespace zek::text
