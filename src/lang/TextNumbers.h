#pragma once

#include <cstdint>

/// Names for the numbers of the language texts. Numbers below 500 are those of the language files
/// in the field; from 500 up they are ours and have a built-in Swedish text.
namespace zek::text {

inline constexpr std::int32_t kDayUnknown = 269;    // a weekday line with an unknown day key
inline constexpr std::int32_t kDayFull = 270;       // a 17th row for one day
inline constexpr std::int32_t kWeekdayRetry = 267;  // question after a failed write
inline constexpr std::int32_t kWeekdayRetryTitle = 268;

}  // namespace zek::text
