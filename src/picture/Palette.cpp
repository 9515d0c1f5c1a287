#include "picture/Palette.h"

namespace zek {
namespace {

constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kBlack{0, 0, 0};
constexpr Rgb kNight{30, 30, 30};
constexpr Rgb kPale{240, 240, 240};

}  // namespace

Rgb BarLook::Hatch() const {
  constexpr double share = 0.4;
  return Blend(fill, text, share);
}

const Palette& LightPalette() {
  static constexpr Palette palette{kWhite,
                                   kBlack,
                                   {200, 200, 200},
                                   {200, 0, 90},
                                   kBlack,
                                   {{
                                       {{18, 58, 99}, {18, 58, 99}, kWhite, BarPattern::Plain},
                                       {{0, 158, 115}, {0, 90, 65}, kBlack, BarPattern::Diagonal},
                                       {{184, 74, 0}, {120, 45, 0}, kWhite, BarPattern::Crossed},
                                       {kWhite, {110, 110, 110}, kBlack, BarPattern::Plain},
                                   }}};
  return palette;
}

const Palette& DarkPalette() {
  static constexpr Palette palette{
      kNight,
      kPale,
      {80, 80, 80},
      {255, 120, 190},
      kWhite,
      {{
          {{109, 179, 242}, {170, 215, 255}, kBlack, BarPattern::Plain},
          {{30, 140, 105}, {120, 220, 185}, kBlack, BarPattern::Diagonal},
          {{255, 205, 120}, {255, 235, 190}, kBlack, BarPattern::Crossed},
          {kNight, {150, 150, 150}, kPale, BarPattern::Plain},
      }}};
  return palette;
}

}  // namespace zek
