#pragma once

#include <optional>
#include <vector>

#include "forecast/Forecast.h"

namespace zek::trials {

/// A command as the replay sees it. `order` compares commands of one minute.
struct Commanded {
  std::vector<std::int64_t> order;
  Applied answer;
};

/// A minute of a replay.
struct Replayed {
  Applied answer;
  std::optional<std::size_t> mask;  // the exception that applies, if one does
  Moment commanded = -1;            // the minute of the last command
  bool event = false;
};

/// Goes through a schedule minute by minute, as the rule is told in words. It shares nothing with
/// the forecast but the types of its results.
class Replay {
 public:
  /// No dated entry may lie in the first ten days: they tell what was commanded before.
  Replay(const Schedule& schedule, const Rule& rule, DayNumber first, DayNumber days);

  const Replayed& At(Moment moment) const;
  std::vector<Applied> Beaten(Moment moment) const;

 private:
  Replayed Next(const Replayed& before, Moment now) const;
  std::vector<Commanded> CommandsAt(Moment now) const;
  void AddWeekday(std::vector<Commanded>& commands, Moment now, DayNumber date) const;
  void AddExceptions(std::vector<Commanded>& commands, Moment now) const;
  std::size_t TypeOn(DayNumber date) const;
  bool Masks(std::size_t place, Moment now) const;
  Moment StopOf(std::size_t place) const;
  std::optional<std::size_t> MaskAt(Moment now) const;

  Schedule schedule_;
  Rule rule_;
  Moment start_;
  std::vector<std::size_t> types_;  // of each date from three before the first one
  std::vector<Replayed> minutes_;
};

}  // namespace zek::trials
