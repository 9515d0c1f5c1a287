#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forecast/Schedule.h"
#include "system/LocalTime.h"

namespace zek {

/// The minute of a time of the clock, and its day.
Moment MomentOf(const LocalTime& time);
DayNumber DayOf(const LocalTime& time);

/// "2026-12-07T06:30"
std::string MomentText(Moment moment);

/// Parses such a text; returns nothing for another one, or for a date that does not exist.
std::optional<Moment> ParseMoment(std::string_view text);

/// Parses "2026-12-07".
std::optional<DayNumber> ParseDay(std::string_view text);

/// "21.5", or "-" for no value.
std::string ValueText(MaybeValue value, char decimalSeparator);

}  // namespace zek
