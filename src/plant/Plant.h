#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Generation.h"

namespace zek::sim {

/// A controller holds no longer line and no more lines a catalogue; what goes beyond is refused, so
/// that no client can make the plant grow without bound.
inline constexpr std::size_t kLongestLine = 200;
inline constexpr std::size_t kMostLines = 999;

/// One catalogue: its lines as the controller lists them, by line number.
struct PlantCatalogue {
  std::string header;  // the line before the numbered ones
  std::map<int, std::string> lines;

  /// Replaces the line of the same number or adds it; false when the catalogue is full.
  bool Put(int number, std::string_view line);
};

/// A ZEK2 time control with the catalogues of its own.
struct TimeControl {
  std::string name;  // windows-1252, without "!" and "."
  PlantCatalogue weekday;
  PlantCatalogue exceptions;
  std::optional<std::string> defaultValue;  // nothing: listed without ".DFV" line
};

/// One controller. A ZEK1 keeps one weekday and one exception catalogue for all its time controls
/// (the lines carry the names), a ZEK2 keeps them by time control; both have one calendar.
struct Outstation {
  std::string name;  // of its folder, as the disk has it
  Generation generation = Generation::Zek1;
  int dus = 0;  // 0: reached without a DUS number
  PlantCatalogue calendar;
  PlantCatalogue weekday;             // ZEK1
  PlantCatalogue exceptions;          // ZEK1
  std::vector<TimeControl> controls;  // ZEK2
  bool changed = false;               // since it was loaded or saved

  /// Nothing when there is none of that name, compared without regard to case.
  TimeControl* FindControl(std::string_view controlName);
};

struct Plant {
  std::vector<Outstation> outstations;

  /// The outstation with this DUS number.
  Outstation* FindDus(int dus);
  /// Whom a connection without DUS number reaches: the first ZEK1 without one, else the first
  /// outstation without one.
  Outstation* FindTransparent();
};

}  // namespace zek::sim
