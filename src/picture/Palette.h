#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "picture/Rgb.h"

namespace zek {

/// Why a bar is there: the kind of its source.
enum class BarKind : std::uint8_t { Weekday, SpecialDay, Exception, Nothing };
inline constexpr std::size_t kBarKinds = 4;

/// How the kinds are told apart without colour.
enum class BarPattern : std::uint8_t { Plain, Diagonal, Crossed };

/// The look of the bars of one kind. A bar has a frame in the colour `edge`; behind its text there
/// is no pattern.
struct BarLook {
  Rgb fill;
  Rgb edge;
  Rgb text;
  BarPattern pattern = BarPattern::Plain;

  /// The lines of the pattern.
  Rgb Hatch() const;
};

/// The colours of a picture. Colour-blind people and grey printers tell the bars apart, too: the
/// fills differ in brightness. Text has a contrast of 4.5, bars have 3.
struct Palette {
  Rgb ground;
  Rgb text;
  Rgb line;     // of the hours and the days
  Rgb now;      // the present moment
  Rgb current;  // the frame of the current bar
  std::array<BarLook, kBarKinds> bars;

  const BarLook& Of(BarKind kind) const { return bars.at(static_cast<std::size_t>(kind)); }
};

const Palette& LightPalette();
const Palette& DarkPalette();

}  // namespace zek
