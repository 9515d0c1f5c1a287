#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "formats/CatalogueFields.h"
#include "picture/Palette.h"

namespace zek {

/// A row of a picture: a day, from 00 to 24.
struct SceneRow {
  std::string label;
  std::size_t lanes = 1;  // for bars that overlap; they share the height of the row
};

/// A bar in a row. Times are minutes after the row's midnight, 0 to `kMinutesOfDay`.
struct SceneBar {
  std::size_t row = 0;
  std::size_t lane = 0;
  int from = 0;
  int to = 0;
  BarKind kind = BarKind::Nothing;
  std::size_t entry = 0;  // of a table: the row that it stands for
  std::string value;      // written into it
  std::string sentence;   // the whole: day, times, value, source
};

/// A minute of a row.
struct ScenePoint {
  std::size_t row = 0;
  int minute = 0;

  bool operator==(const ScenePoint&) const = default;
};

/// What a picture shows, as a value: a window draws it, and it can be written as SVG. Texts are
/// windows-1252.
struct Scene {
  std::string title;
  std::string note;  // below it; "" for none
  std::vector<SceneRow> rows;
  std::vector<SceneBar> bars;     // by row, then by time
  std::optional<ScenePoint> now;  // the present moment
  std::string nowLabel;
  std::array<std::string, kBarKinds> kinds;  // what each kind of bar is called; "" is not explained
  std::string letters;                       // one of each kind; a language may have fewer

  std::string LetterOf(std::size_t kind) const {
    return kind < letters.size() ? letters.substr(kind, 1) : std::string();
  }

  /// What may be written into a bar, the longest first: "V 21 Dag", "21 Dag", "V 21", "21". The
  /// letter tells the kind where colours do not.
  std::vector<std::string> TextsOf(const SceneBar& bar) const {
    const auto kind = static_cast<std::size_t>(bar.kind);
    const std::string own = LetterOf(kind);
    const std::string letter = own.empty() ? own : own + " ";
    std::vector<std::string> texts{letter + bar.value, bar.value};
    const std::string number = bar.value.substr(0, bar.value.find(' '));
    if (number.find_first_of("0123456789") != std::string::npos)
      texts.insert(texts.end(), {letter + number, number});
    return texts;
  }

  /// Returns the bar at a minute, of several the one that begins last.
  std::optional<std::size_t> BarAt(ScenePoint point) const {
    std::optional<std::size_t> found;
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
      const SceneBar& each = bars[bar];
      if (each.row == point.row && each.from <= point.minute && point.minute < each.to) found = bar;
    }
    return found;
  }
};

}  // namespace zek
