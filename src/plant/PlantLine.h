#pragma once

#include <string_view>

#include "plant/Plant.h"

namespace zek::sim {

/// Takes the next line, without its CR LF or LF, off the front of a text that is not empty.
std::string_view TakeTextLine(std::string_view& text);

/// The number a catalogue line begins with, 1 to 99999; 0 when it begins with none.
int LineNumber(std::string_view line);

/// True when nothing in `line` would disturb the line protocol: no control character, no character
/// 255 (it ends a piece) and at most `kLongestLine` characters.
bool IsPlainLine(std::string_view line);

/// True for a default value a time control accepts: a number or ".".
bool IsPlantValue(std::string_view text);

/// True for the names that have the short line layout and line numbers of their own ("PLT7").
bool IsPltName(std::string_view name);

// What a controller checks before it takes a line: the "!" in their columns and every field
// between them. Columns count from 1.

/// A line of a ZEK1's weekday catalogue, for whatever time control:
///   number 1-5, "!" 7, name 8-19, "!" 20, days 21-33, "!" 34, times 35-59, "!" 60,
///   start value 61-69, "!" 70, stop value
/// or, for the "PLT" controls, whose lines carry no name:
///   number 2-5, days 7-31, "!" 32, times 33-45, "!" 46, start value.
bool IsZek1WeekdayLine(std::string_view line);

/// The same for one time control of a ZEK2: the short layout for a "PLT" name, else the long one
/// with this name in it (its first 12 characters).
bool IsZek2WeekdayLine(std::string_view line, std::string_view control);

/// Number 1-5, "!" 7, date or run of dates 8-59, "!" 60, day key; or number 2-5, dates 7-31, "!"
/// 32, day key. Dates are DD-MON-YY on a ZEK1, DD-MON-YYYY on a ZEK2.
bool IsCalendarLine(std::string_view line, Generation generation);

/// ZEK1: number 1-5, "!" 7, name 8-19, "!" 20, DD-MON-YY,HH:MM (and ".." and the stop) 21-59,
/// "!" 60, start value, "!", stop value.
/// ZEK2: number 1-5, dates DD-MON-YYYY 7-31, "!" 32, times 33-45, "!" 46, start value, "!", stop
/// value.
bool IsExceptionLine(std::string_view line, Generation generation);

}  // namespace zek::sim
