#pragma once

#include <string>

#include "forecast/DayTypes.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"

namespace zek {

/// What the picture of a year calls its days.
struct YearWords {
  const LanguageTexts& texts;
  const SpecialDayNames& names;
};

/// A year of the calendar as SVG, UTF-8: twelve months, each day with its number and, where the
/// calendar gives it a type, with a frame and that type's letters. `title` is windows-1252.
std::string YearPicture(int year, const DayTypes& types, const std::string& title,
                        const YearWords& words);

}  // namespace zek
