#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "findings/FindingKinds.h"
#include "forecast/Forecast.h"
#include "forecast/Schedule.h"

namespace zek {

/// A line that may be without effect: `RowNoEffect`, `ExceptionNoEffect` or `DateNoEffect`.
struct Doubt {
  FindingKind kind = FindingKind::RowNoEffect;
  int line = 0;
};

/// Return the lines that can be judged from `today` on: not those that are over, and not rows of
/// special days that no date has.
std::vector<Doubt> DoubtsOfRows(const Schedule& schedule, DayNumber today);
std::vector<Doubt> DoubtsOfExceptions(const Schedule& schedule, DayNumber today);
std::vector<Doubt> DoubtsOfDates(const Schedule& schedule, DayNumber today);

/// Returns a schedule without the entries of a line.
Schedule Without(Schedule schedule, const Doubt& doubt);

/// The special days that a date from `today` on has.
TypeSet ComingTypes(const Schedule& schedule, DayNumber today);

/// Looks whether, by any variant of the rule, any value in the ten years from `today` on differs
/// between two schedules. Every dated entry of `without` must also be in `with`.
class ValueComparison {
 public:
  ValueComparison(Schedule with, Schedule without, DayNumber today);

  /// Compares so many events more, because full catalogues take long. Returns the answer once it
  /// is known.
  std::optional<bool> Step(std::size_t events);

 private:
  bool BeginVariant();

  Schedule with_;
  Schedule without_;
  std::vector<std::pair<Moment, Moment>> times_;
  std::vector<Rule> variants_;
  std::size_t variant_ = 0;
  std::size_t time_ = 0;
  Moment at_ = 0;
  std::optional<Forecast> one_;
  std::optional<Forecast> other_;
};

/// Does the same in one go.
bool HaveEffect(const Schedule& schedule, const Doubt& doubt, DayNumber today);

}  // namespace zek
