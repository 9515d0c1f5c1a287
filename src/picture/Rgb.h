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

/// True for a colour that needs dark text on it, such as the ground of a light theme.
bool IsLight(const Rgb& colour);

/// Mixes two colours: `share` (0 to 1) of `colour`, the rest of `ground`.
Rgb Blend(const Rgb& ground, const Rgb& colour, double share);

}  // namespace zek
