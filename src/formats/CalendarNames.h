#pragma once

#include <string>

#include "formats/CalendarTable.h"
#include "lang/LanguageTexts.h"

// Days, months and day types in words, from the language texts.
namespace zek {

/// The caption of a day type 0 to 14: 0 is no type, then the weekdays and "SD1" to "SD7".
std::string DayTypeCaption(int type, const LanguageTexts& texts);

/// The three characters of a day type in the month grid, blanks for no type (text 230).
std::string DayTypeAbbreviation(int type, const LanguageTexts& texts);

/// A day type 1 to 14 as it follows a date: "SD1", "som måndag".
std::string SpokenDayType(int type, const LanguageTexts& texts);

/// "December 2026".
std::string MonthName(const CalendarDate& date, const LanguageTexts& texts);

/// "torsdag 24 december 2026"; the weekday is 0 for Monday.
std::string DateName(const CalendarDate& date, int weekday, const LanguageTexts& texts);

}  // namespace zek
