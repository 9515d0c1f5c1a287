#include "editors/CalendarColours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace zek {
namespace {

constexpr Rgb kLightRed{255, 0, 0};
constexpr Rgb kLighterRed{255, 128, 128};
constexpr Rgb kLightBlue{0, 0, 255};
constexpr Rgb kLighterBlue{144, 180, 255};
constexpr double kReadable = 4.5;       // minimum contrast of text
constexpr double kReadableOnLight = 3;  // lower, because users know these colours on white
constexpr double kShareOfHighlight = 0.2;

// Relative luminance, 0 to 1, as defined by the Web Content Accessibility Guidelines.
double Luminance(const Rgb& colour) {
  const auto linear = [](std::uint8_t part) {
    const double value = part / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

Rgb FirstReadable(std::initializer_list<Rgb> wanted, const Rgb& background, const Rgb& otherwise) {
  constexpr double light = 0.5;
  const double needed = Luminance(background) > light ? kReadableOnLight : kReadable;
  const auto* const found = std::find_if(wanted.begin(), wanted.end(), [&](const Rgb& each) {
    return Contrast(each, background) >= needed;
  });
  return found == wanted.end() ? otherwise : *found;
}

}  // namespace

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

CalendarColours ColoursOn(const Rgb& background, const Rgb& text, const Rgb& highlight) {
  const Rgb selected = Blend(background, highlight, kShareOfHighlight);
  return {FirstReadable({kLightRed, kLighterRed}, background, text),
          FirstReadable({kLightBlue, kLighterBlue}, selected, text), selected,
          FirstReadable({highlight}, background, text)};
}

}  // namespace zek
