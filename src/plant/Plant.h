#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Generation.h"

namespace zek::sim {

/// Limits of a controller: characters per line, lines per catalogue. More is refused, so that no
/// client can make the plant grow without limit.
inline constexpr std::size_t kLongestLine = 200;
inline constexpr std::size_t kMostLines = 999;

/// One catalogue: its lines as the controller lists them, keyed by line number.
struct PlantCatalogue {
  std::string header;  // the line before the numbered ones
  std::map<int, std::string> lines;

  /// Replaces the line of the same number or adds it; returns false if the catalogue is full.
  bool Put(int number, std::string_view line);
};

/// What lines that are sent to a catalogue replace. Real controllers differ.
enum class Replaces {
  Number,   // each line the line of its number; a new number is added
  Control,  // all lines of the time control that is sent; in a catalogue of one owner as Catalogue
  Catalogue,  // the selector empties the catalogue
};

/// A ZEK2 time control with its own catalogues.
struct TimeControl {
  std::string name;  // windows-1252, without "!" and "."
  PlantCatalogue weekday;
  PlantCatalogue exceptions;
  std::optional<std::string> defaultValue;  // nothing: the listing has no ".DFV" line
};

/// One controller. A ZEK1 has one weekday and one exception catalogue for all its time controls
/// (the lines contain the names). A ZEK2 has both for each time control. Each has one calendar.
struct Outstation {
  std::string name;  // of its folder, UTF-8
  Generation generation = Generation::Zek1;
  int dus = 0;  // DUS number; 0: without one
  PlantCatalogue calendar;
  PlantCatalogue weekday;             // ZEK1
  PlantCatalogue exceptions;          // ZEK1
  std::vector<TimeControl> controls;  // ZEK2
  Replaces replaces = Replaces::Number;
  bool changed = false;  // since the last load or save

  /// Finds a control by name, case-insensitive; null if it is unknown.
  TimeControl* FindControl(std::string_view controlName);
};

struct Plant {
  std::vector<Outstation> outstations;

  /// Returns the outstation with this DUS number; null for 0 or an unknown number.
  Outstation* FindDus(int dus);
  /// Returns the outstation for connections without a DUS number: the first ZEK1 without one, else
  /// the first outstation without one, else null.
  Outstation* FindTransparent();
};

}  // namespace zek::sim
