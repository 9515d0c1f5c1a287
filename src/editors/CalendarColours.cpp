#include "editors/CalendarColours.h"

#include <algorithm>
#include <initializer_list>

namespace zek {
namespace {

constexpr Rgb kLightRed{255, 0, 0};
constexpr Rgb kRed{200, 0, 0};
constexpr Rgb kLighterRed{255, 128, 128};
constexpr Rgb kLightBlue{0, 0, 255};
constexpr Rgb kLighterBlue{144, 180, 255};
constexpr double kReadable = 4.5;       // minimum contrast of text
constexpr double kReadableOnLight = 3;  // lower, because users know these colours on white
constexpr double kShareOfHighlight = 0.2;

Rgb FirstReadable(std::initializer_list<Rgb> wanted, const Rgb& background, const Rgb& otherwise,
                  double onLight = kReadableOnLight) {
  const double needed = IsLight(background) ? onLight : kReadable;
  const auto* const found = std::find_if(wanted.begin(), wanted.end(), [&](const Rgb& each) {
    return Contrast(each, background) >= needed;
  });
  return found == wanted.end() ? otherwise : *found;
}

}  // namespace

CalendarColours ColoursOn(const Rgb& background, const Rgb& text, const Rgb& highlight) {
  const Rgb selected = Blend(background, highlight, kShareOfHighlight);
  return {FirstReadable({kLightRed, kLighterRed}, background, text),
          FirstReadable({kLightBlue, kLighterBlue}, selected, text), selected,
          FirstReadable({highlight}, background, text),
          FirstReadable({kLightRed, kRed, kLighterRed}, background, text, kReadable)};
}

}  // namespace zek
