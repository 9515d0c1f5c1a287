#pragma once

#include "editors/CalendarColours.h"

namespace zek {

/// Returns the ground of a day with a day type 1 to 14: another one for each of SD1 to SD7, on
/// which the text is readable. Colour-blind people can tell them apart; each has a letter as well.
Rgb TypeGround(int type, const Rgb& background, const Rgb& text);

/// The letter of a day type 1 to 14 in the picture of a year: A to G for SD1 to SD7, then H to N
/// for the weekdays.
char TypeLetter(int type);

}  // namespace zek
