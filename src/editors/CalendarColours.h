#pragma once

#include "picture/Rgb.h"

namespace zek {

/// The colours of the month grid and the year. Days can be distinguished without them, but the text
/// must be readable on the background of the system's theme.
struct CalendarColours {
  Rgb free;                // Sundays and holidays
  Rgb selected;            // text and frames of the selected days
  Rgb selectedBackground;  // background of the selected days
  Rgb cursor;              // frame of the cursor's day
  Rgb freeOfYear;          // Sundays and holidays in the year, whose text is smaller
};

/// Returns light red and light blue, in a lighter shade on a dark background, or the colour of
/// other text if neither shade is readable. `highlight` is the system's colour of selected items.
CalendarColours ColoursOn(const Rgb& background, const Rgb& text, const Rgb& highlight);

}  // namespace zek
