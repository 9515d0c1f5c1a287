#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/Findings.h"

namespace zek {

/// Collects findings; what is found twice is listed once.
class FindingList {
 public:
  void Add(FindingKind kind, std::string place, std::array<std::string, 3> words = {}) {
    Finding finding{kind, std::move(place), std::move(words)};
    if (std::find(found_.begin(), found_.end(), finding) == found_.end()) {
      found_.push_back(std::move(finding));
    }
  }

  std::vector<Finding> Take() { return std::move(found_); }

 private:
  std::vector<Finding> found_;
};

/// "wdc 1000"
inline std::string PlaceOf(std::string_view kind, int line) {
  return std::string(kind) + " " + std::to_string(line);
}

/// Adds `NearlyFull` if nine in ten of the places are in use.
inline void CheckFull(FindingList& list, const std::string& place, std::size_t used,
                      std::size_t most) {
  constexpr std::size_t tenth = 10;
  if (used * tenth < most * (tenth - 1)) return;
  list.Add(FindingKind::NearlyFull, place, {std::to_string(used), std::to_string(most), {}});
}

void FindInRows(FindingList& list, const ControlTables& control, const FindingContext& context);
void FindInExceptions(FindingList& list, const ControlTables& control,
                      const FindingContext& context);
void FindInCalendar(FindingList& list, const ControlTables& control, const FindingContext& context);

}  // namespace zek
