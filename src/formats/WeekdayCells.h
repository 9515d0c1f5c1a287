#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/WeekdayTable.h"

namespace zek {

/// Returns hours and minutes as two digits each ("07:05"); "" for `kNoTime`.
std::string TimeText(std::int16_t minutes);

/// Returns a start value; "" for 0 in a row without a start time, which is an empty row.
std::string ValueOnText(const WeekdayRow& row, char decimalSeparator);

/// Returns a stop value; "" for `kNoValue`.
std::string ValueOffText(const WeekdayRow& row, char decimalSeparator);

/// Parses a typed time; returns nothing if it is invalid. Hours and minutes are digits, separated
/// by the first ".", ":" or ",". Without a separator, one or two digits are hours, and the last two
/// of three or four digits are minutes up to 59 ("7", "730", "1630"). With one, up to 1999 minutes
/// are carried into hours ("0.90" is 01:30). Times beyond 24:00 become 24:00. An empty text is
/// `kNoTime`.
std::optional<std::int16_t> TypedTime(std::string_view text);

}  // namespace zek
