#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "forecast/Masks.h"
#include "forecast/SwitchCommands.h"

namespace zek {

/// A value and where it comes from.
struct Applied {
  MaybeValue value;
  SwitchSource source;

  bool operator==(const Applied&) const = default;
};

/// A time in which one answer applies.
struct Stretch {
  Moment from = 0;
  Moment to = 0;  // the first minute after it
  Applied applied;

  bool operator==(const Stretch&) const = default;
};

/// What applies to a time control, computed from its schedule by an assumed rule: its controller
/// does not tell how it combines its catalogues, nor what its clock says. All moments are civil
/// minutes; there is no daylight saving time.
///
/// An event is a minute whose answer comes from another entry than that of the minute before, or
/// from the same one anew: a row that repeats is an event even if nothing changes. A change is a
/// minute whose value differs from that of the minute before.
class Forecast {
 public:
  Forecast(const Schedule& schedule, const Rule& rule);

  Applied At(Moment moment) const;

  /// Returns the last event up to a moment; nothing if there was none.
  std::optional<Moment> LastEvent(Moment moment) const;

  /// Returns the first event after a moment; nothing if there never is one.
  std::optional<Moment> NextEvent(Moment moment) const;

  /// Returns the first change after a moment; nothing if there never is one.
  std::optional<Moment> NextChange(Moment moment) const;

  /// Returns what lost against the answer at a moment, the best first: where an exception masks,
  /// the other active ones and the command beneath, else the other commands of the same minute.
  std::vector<Applied> Beaten(Moment moment) const;

  /// Returns what applies from `from` up to `to`, without gaps; neighbours differ.
  std::vector<Stretch> Timeline(Moment from, Moment to) const;

  const DayTypes& Types() const { return commands_.Types(); }

 private:
  Applied Beneath(Moment moment) const;

  SwitchCommands commands_;
  Masks masks_;
  MaybeValue standard_;
  Moment lastDated_ = 0;  // no dated entry does anything after it
};

}  // namespace zek
