#pragma once

#include <cstddef>
#include <string>

#include "formats/CalendarTable.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"

// Days, months and day types in words, from the language texts.
namespace zek {

/// The caption of a day type 0 to 14: 0 is no type, then the weekdays and "SD1" to "SD7", with
/// their names: "SD1 Jullov".
std::string DayTypeCaption(int type, const LanguageTexts& texts, const SpecialDayNames& names);

/// The short form of a day of the weekday table, 0 to 13: "Mån" for 0, "SD1 Jullov" for 7.
std::string DayTypeName(std::size_t day, const LanguageTexts& texts, const SpecialDayNames& names);

/// The three characters of a day type in the month grid, blanks for no type (text 230).
std::string DayTypeAbbreviation(int type, const LanguageTexts& texts);

/// A day type 1 to 14 as it follows a date: "SD1 Jullov", "som måndag".
std::string SpokenDayType(int type, const LanguageTexts& texts, const SpecialDayNames& names);

/// "December 2026".
std::string MonthName(const CalendarDate& date, const LanguageTexts& texts);

/// "torsdag 24 december 2026"; the weekday is 0 for Monday.
std::string DateName(const CalendarDate& date, int weekday, const LanguageTexts& texts);

}  // namespace zek
