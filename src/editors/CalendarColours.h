#pragma once

#include <cstdint>

namespace zek {

/// A colour as red, green and blue.
struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Rgb&) const = default;
};

/// How well two colours can be told apart: 1 (the same) to 21 (black and white).
double Contrast(const Rgb& one, const Rgb& other);

/// `share` (0 to 1) of `colour` and the rest of `ground`.
Rgb Blend(const Rgb& ground, const Rgb& colour, double share);

/// The colours of the month grid. Nobody has to see them to tell the days apart, but whoever does
/// must be able to read them on the background that the system's theme gives.
struct CalendarColours {
  Rgb free;                // of Sundays and holidays
  Rgb selected;            // text and frames of the selected days
  Rgb selectedBackground;  // and what they stand on
  Rgb cursor;              // frame of the cursor's day
};

/// Light red and light blue, in a lighter shade on a dark background, in the colour of other text
/// where neither can be read. `highlight` is the system's colour of selected things.
CalendarColours ColoursOn(const Rgb& background, const Rgb& text, const Rgb& highlight);

}  // namespace zek
