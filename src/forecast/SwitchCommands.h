#pragma once

#include <array>
#include <compare>
#include <optional>
#include <vector>

#include "forecast/DayTypes.h"
#include "forecast/Rule.h"
#include "forecast/Schedule.h"

namespace zek {

/// Where a value comes from.
struct SwitchSource {
  /// In the order in which commands of one minute win.
  enum class Kind { None, ExceptionStop, RowStop, RowStart, Exception };

  Kind kind = Kind::None;
  int line = 0;  // the number of the catalogue line

  /// "wdc 1000 start", "wdc 1000 stop", "ovc 1", "ovc 1 stop" or "none".
  std::string Text() const;

  bool operator==(const SwitchSource&) const = default;
};

/// A command to take a value at a minute; of all that were given the last one applies.
struct SwitchCommand {
  Moment at = 0;  // within a day type: from 00:00 of the row's date on
  SwitchSource::Kind kind = SwitchSource::Kind::None;
  DayNumber day = 0;      // the date of a weekday row, also when the moment falls on a later one
  std::size_t place = 0;  // the row, or the exception's place among the lines
  int line = 0;
  MaybeValue value;

  SwitchSource Source() const { return {kind, line}; }

  std::strong_ordering operator<=>(const SwitchCommand& other) const;
  bool operator==(const SwitchCommand& other) const { return std::is_eq(*this <=> other); }
};

/// The commands of a schedule, of its weekdays and its exceptions alike. Those of the weekdays
/// repeat without end in both directions, so they are never listed.
class SwitchCommands {
 public:
  SwitchCommands(const Schedule& schedule, const Rule& rule);

  /// Returns the last command at or before a moment, of one minute the one that wins.
  std::optional<SwitchCommand> Last(Moment moment) const;

  /// Returns the first minute after a moment that has a command.
  std::optional<Moment> Next(Moment moment) const;

  /// Returns the first minute after a moment that has a command, which may lose, with another
  /// value.
  std::optional<Moment> NextOther(Moment moment, MaybeValue value) const;

  /// Returns the commands of a minute, the one that wins first.
  std::vector<SwitchCommand> At(Moment minute) const;

  const DayTypes& Types() const { return types_; }

 private:
  template <class Wanted>
  std::optional<Moment> NextWanted(Moment moment, const TypeSet& types, Wanted wanted) const;
  void AddRow(std::size_t type, std::size_t row, const Schedule& schedule, const Rule& rule);
  void AddException(std::size_t place, const Schedule& schedule, const Rule& rule);

  DayTypes types_;
  std::array<std::vector<SwitchCommand>, kWeekdayDays> week_;  // sorted; of each day type
  std::vector<SwitchCommand> exceptions_;                      // sorted
  TypeSet busy_;                                               // the day types with commands
  bool midnights_;
  MaybeValue standard_;
};

/// Returns the moment at which an exception stops, with midnight as 00:00 of the next date;
/// nothing if it is only a point in time.
std::optional<Moment> StopOf(const OvcRow& exception);

/// Returns a value of a line: nothing for `kNoValue`.
inline MaybeValue ValueOf(float value) {
  return value == kNoValue ? std::nullopt : MaybeValue(value);
}

}  // namespace zek
