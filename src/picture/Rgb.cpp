#include "picture/Rgb.h"

#include <algorithm>
#include <cmath>

namespace zek {
namespace {

// Relative luminance, 0 to 1, as defined by the Web Content Accessibility Guidelines.
double Luminance(const Rgb& colour) {
  const auto linear = [](std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

}  // namespace

bool IsLight(const Rgb& colour) {
  constexpr double middle = 0.5;
  return Luminance(colour) > middle;
}

double Contrast(const Rgb& one, const Rgb& other) {
  constexpr double flare = 0.05;
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + flare) / (dark + flare);
}

Rgb Blend(const Rgb& ground, const Rgb& colour, double share) {
  const auto mix = [share](std::uint8_t below, std::uint8_t above) {
    return static_cast<std::uint8_t>(std::lround(below * (1 - share) + above * share));
  };
  return {mix(ground.red, colour.red), mix(ground.green, colour.green),
          mix(ground.blue, colour.blue)};
}

}  // namespace zek
