#pragma once

#include <string>

#include "forecast/DayTypes.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// A year of the calendar as SVG, UTF-8: twelve months, each day with its number and, where the
/// calendar gives it a type, with a frame and that type's letters. `title` is windows-1252.
std::string YearPicture(int year, const DayTypes& types, const std::string& title,
                        const LanguageTexts& texts);

}  // namespace zek
