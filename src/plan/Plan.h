#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/Generation.h"
#include "settings/Settings.h"

namespace zek {

/// What a plan makes of the lines of one time control. The numbers of the lines do not count.
struct PlannedControl {
  std::string name;  // of a calendar: the control that it is opened from, or ""
  std::vector<std::string> was;
  std::vector<std::string> will;
};

/// The change of one catalogue and the controller that it is for.
struct PlannedCatalogue {
  Catalogue kind = Catalogue::Wdc;
  std::string topic;
  Generation type = Generation::Zek1;
  std::string address;
  std::string tag;
  std::size_t linesToSend = 0;           // for the expected time
  std::vector<PlannedControl> controls;  // several in a shared catalogue

  bool IsShared() const { return type == Generation::Zek1 && kind != Catalogue::Sdc; }
  /// Returns "TOPIC", or "TOPIC/CONTROL" for a catalogue that one control has alone.
  std::string Node() const {
    const bool ofControl = type == Generation::Zek2 && kind != Catalogue::Sdc && !controls.empty();
    return ofControl ? topic + "/" + controls.front().name : topic;
  }
};

struct Plan {
  std::vector<PlannedCatalogue> catalogues;
};

/// Returns the expected time of applying a plan in seconds: the pauses in the settings. What the
/// controllers take to answer is not known.
int PlanSeconds(const Plan& plan, const NumberReader& numbers);

/// What became of a catalogue when a plan was made or applied.
enum class PlanWord { Unchanged, Change, Refused, Done, Already, Stale, Failed, Untried };
std::string_view TextOf(PlanWord word);

/// Characters of the reason in a line; longer ones are shortened.
inline constexpr std::size_t kLongestWhy = 400;

struct PlanLine {
  PlanWord word = PlanWord::Unchanged;
  std::string node;
  std::string kind;  // "wdc"; "" if the node is unknown
  std::size_t added = 0;
  std::size_t removed = 0;
  std::string controls;  // that change in a shared catalogue: "AHU1,AHU2"
  std::string why;       // windows-1252

  /// The line with tabs between its fields.
  std::string Text() const;
};

/// "wdc"
std::string KindText(Catalogue kind);

}  // namespace zek
