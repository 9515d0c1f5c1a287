#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "findings/Effect.h"
#include "findings/Findings.h"

namespace zek {

/// Finds what is without effect step by step, because the proof takes long.
class FindingSearch {
 public:
  FindingSearch() = default;
  /// `found` is what needs no proof. A line in doubt is without effect if it is so in each of the
  /// schedules.
  FindingSearch(std::vector<Finding> found, std::vector<Doubt> doubts,
                std::vector<Schedule> schedules, DayNumber today);

  /// Adds findings that are known already.
  void Add(const std::vector<Finding>& found) {
    found_.insert(found_.end(), found.begin(), found.end());
  }

  /// Compares up to so many events; returns true if more remains.
  bool Step(std::size_t events);
  bool Complete() const { return doubt_ == doubts_.size(); }

  const std::vector<Finding>& Found() const { return found_; }

 private:
  void NextDoubt();

  std::vector<Finding> found_;
  std::vector<Doubt> doubts_;
  std::vector<Schedule> schedules_;
  DayNumber today_ = 0;
  std::size_t doubt_ = 0;
  std::size_t schedule_ = 0;
  std::optional<ValueComparison> comparison_;
};

}  // namespace zek
