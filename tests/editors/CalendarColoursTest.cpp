#include <algorithm>
#include <gtest/gtest.h>

#include "editors/CalendarColours.h"
#include "picture/Palette.h"

namespace zek {
namespace {

constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kBlack{0, 0, 0};

TEST(CalendarColours, AreTheWantedOnesOnLightGround) {
  const CalendarColours colours = ColoursOn(kWhite, kBlack, {53, 132, 228});
  EXPECT_EQ(colours.free, (Rgb{255, 0, 0}));
  EXPECT_EQ(colours.selected, (Rgb{0, 0, 255}));
  EXPECT_EQ(colours.cursor, (Rgb{53, 132, 228}));
  EXPECT_NE(ColoursOn({45, 45, 45}, kWhite, {21, 83, 158}).free, colours.free);
  EXPECT_NEAR(Contrast(kWhite, kBlack), 21, 0.01);
}

TEST(CalendarColours, CanBeReadOnAnyGround) {
  for (int red = 0; red <= 255; red += 51) {
    for (int green = 0; green <= 255; green += 51) {
      for (int blue = 0; blue <= 255; blue += 51) {
        const Rgb ground{static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                         static_cast<std::uint8_t>(blue)};
        const Rgb text = Contrast(ground, kWhite) > Contrast(ground, kBlack) ? kWhite : kBlack;
        const CalendarColours colours = ColoursOn(ground, text, {255, 255, 0});
        EXPECT_GE(Contrast(colours.free, ground), 3) << red << " " << green << " " << blue;
        EXPECT_GE(Contrast(colours.freeOfYear, ground), 4.5) << red << " " << green << " " << blue;
        EXPECT_GE(Contrast(colours.cursor, ground), 3) << red << " " << green << " " << blue;
        EXPECT_GE(Contrast(colours.selected, colours.selectedBackground), 3)
            << red << " " << green << " " << blue;
      }
    }
  }
}

TEST(PictureColours, CanBeReadAndToldApartWithoutColour) {
  for (const Palette& palette : {LightPalette(), DarkPalette()}) {
    EXPECT_GE(Contrast(palette.text, palette.ground), 4.5);
    EXPECT_GE(
        std::min(Contrast(palette.now, palette.ground), Contrast(palette.current, palette.ground)),
        3);
    for (std::size_t kind = 0; kind < kBarKinds; ++kind) {
      const BarLook& look = palette.bars.at(kind);
      EXPECT_GE(Contrast(look.edge, palette.ground), 3) << kind;
      EXPECT_GE(Contrast(look.text, look.fill), 4.5) << kind;
      if (static_cast<BarKind>(kind) == BarKind::Nothing) continue;
      EXPECT_GE(Contrast(look.fill, palette.ground), 3) << kind;
      for (std::size_t other = 0; other < kind; ++other)
        EXPECT_GE(Contrast(look.fill, palette.bars.at(other).fill), 1.4) << kind << other;
    }
  }
}

}  // namespace
}  // namespace zek
