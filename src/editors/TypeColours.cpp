#include "editors/TypeColours.h"

#include <array>
#include <cstddef>

namespace zek {
namespace {

constexpr int kWeekdays = 7;
constexpr Rgb kWeekdayColour{128, 128, 128};
// Chosen by Okabe and Ito, so that everybody can tell them apart.
constexpr std::array<Rgb, 7> kColours{{{230, 159, 0},
                                       {86, 180, 233},
                                       {0, 158, 115},
                                       {240, 228, 66},
                                       {0, 114, 178},
                                       {213, 94, 0},
                                       {204, 121, 167}}};

}  // namespace

Rgb TypeGround(int type, const Rgb& background, const Rgb& text) {
  constexpr double readable = 4.5;
  constexpr int strongest = 14;  // of 20 parts
  constexpr double parts = 20;
  const Rgb colour = type > kWeekdays ? kColours.at(static_cast<std::size_t>(type - kWeekdays - 1))
                                      : kWeekdayColour;
  for (int share = strongest; share > 1; --share) {
    const Rgb ground = Blend(background, colour, share / parts);
    if (Contrast(ground, text) >= readable) return ground;
  }
  return background;
}

char TypeLetter(int type) {
  return static_cast<char>(type > kWeekdays ? 'A' + type - kWeekdays - 1 : 'G' + type);
}

}  // namespace zek
