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

/// Returns the contrast of two colours: 1 (equal) to 21 (black and white).
double Contrast(const Rgb& one, const Rgb& other);

/// Mixes two colours: `share` (0 to 1) of `colour`, the rest of `ground`.
Rgb Blend(const Rgb& ground, const Rgb& colour, double share);

/// The colours of the month grid. Days can be distinguished without them, but the text must be
/// readable on the background of the system's theme.
struct CalendarColours {
  Rgb free;                // Sundays and holidays
  Rgb selected;            // text and frames of the selected days
  Rgb selectedBackground;  // background of the selected days
  Rgb cursor;              // frame of the cursor's day
};

/// Returns light red and light blue, in a lighter shade on a dark background, or the colour of
/// other text if neither shade is readable. `highlight` is the system's colour of selected items.
CalendarColours ColoursOn(const Rgb& background, const Rgb& text, const Rgb& highlight);

}  // namespace zek
