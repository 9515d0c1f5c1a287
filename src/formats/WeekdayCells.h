#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "formats/WeekdayTable.h"

namespace zek {

/// Hours and minutes as two digits each ("07:05"); `kNoTime` gives "".
std::string TimeText(std::int16_t minutes);

/// A start value; "" for 0 in a row without a start time, which is an empty row.
std::string ValueOnText(const WeekdayRow& row, char decimalSeparator);

/// A stop value; "" for none.
std::string ValueOffText(const WeekdayRow& row, char decimalSeparator);

/// A time as it is typed; nothing when the entry is refused. Hours and minutes stand before and
/// after the first ".", ":" or ","; without one, one or two digits are hours and of three or four
/// the last two are minutes ("7", "730", "1630"). Up to 1999 minutes are carried into hours
/// ("0.90" is 01:30), what lies beyond 24:00 becomes 24:00, and an empty text is `kNoTime`.
std::optional<std::int16_t> TypedTime(std::string_view text);

/// A start value as it is typed, "," and "." both being decimal separators.
float TypedValueOn(std::string_view text);

/// The same for a stop value; an empty text, and "." or "," alone, is `kNoValue`.
float TypedValueOff(std::string_view text);

}  // namespace zek
