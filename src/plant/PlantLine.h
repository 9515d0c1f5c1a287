#pragma once

#include <string_view>

#include "plant/Plant.h"

namespace zek::sim {

/// Removes the first line from a non-empty text and returns it without CR LF or LF.
std::string_view TakeTextLine(std::string_view& text);

/// Returns the number at the beginning of a catalogue line, 1 to 99999; 0 without one.
int LineNumber(std::string_view line);

/// True if `line` can't disturb the protocol: no control character, no character 255 (it ends a
/// piece) and at most `kLongestLine` characters.
bool IsPlainLine(std::string_view line);

/// True for a value that a time control accepts: a number or ".".
bool IsPlantValue(std::string_view text);

/// True for names of "PLT" controls ("PLT7"). These have the short line layout and their own line
/// numbers.
bool IsPltName(std::string_view name);

// A controller accepts a line only if each "!" is in its column and every field is valid. Columns
// count from 1.

/// True for a line of a ZEK1's weekday catalogue, for any time control:
///   number 1-5, "!" 7, name 8-19, "!" 20, days 21-33, "!" 34, times 35-59, "!" 60,
///   start value 61-69, "!" 70, stop value
/// or, for "PLT" controls, whose lines contain no name:
///   number 2-5, days 7-31, "!" 32, times 33-45, "!" 46, start value.
bool IsZek1WeekdayLine(std::string_view line);

/// The same for one time control of a ZEK2: the short layout for a "PLT" control, else the long one
/// with the control's name (its first 12 characters).
bool IsZek2WeekdayLine(std::string_view line, std::string_view control);

/// True for a calendar line: number 1-5, "!" 7, date or range of dates 8-59, "!" 60, day key; or
/// number 2-5, dates 7-31, "!" 32, day key. Dates are DD-MON-YY on a ZEK1, DD-MON-YYYY on a ZEK2.
bool IsCalendarLine(std::string_view line, Generation generation);

/// True for an exception line.
/// ZEK1: number 1-5, "!" 7, name 8-19, "!" 20, DD-MON-YY,HH:MM (optionally ".." and the stop)
/// 21-59,
/// "!" 60, start value, "!", stop value.
/// ZEK2: number 1-5, dates DD-MON-YYYY 7-31, "!" 32, times 33-45, "!" 46, start value, "!", stop
/// value.
bool IsExceptionLine(std::string_view line, Generation generation);

}  // namespace zek::sim
