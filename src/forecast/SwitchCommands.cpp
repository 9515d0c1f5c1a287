#include "forecast/SwitchCommands.h"

#include <algorithm>
#include <tuple>

namespace zek {
namespace {

using Kind = SwitchSource::Kind;

// The last command of a date falls at the latest so many days after its 00:00: a stop at 24:00
// that is taken on the next date.
constexpr DayNumber kReach = 2;

constexpr auto kBefore = [](const SwitchCommand& command, Moment at) { return command.at < at; };
constexpr auto kAfter = [](Moment at, const SwitchCommand& command) { return at < command.at; };

SwitchCommand OnDay(SwitchCommand command, DayNumber day) {
  command.at += StartOf(day);
  command.day = day;
  return command;
}

}  // namespace

std::string SwitchSource::Text() const {
  const std::string number = std::to_string(line);
  switch (kind) {
    case Kind::None:
      break;
    case Kind::RowStart:
      return "wdc " + number + " start";
    case Kind::RowStop:
      return "wdc " + number + " stop";
    case Kind::Exception:
      return "ovc " + number;
    case Kind::ExceptionStop:
      return "ovc " + number + " stop";
  }
  return "none";
}

std::strong_ordering SwitchCommand::operator<=>(const SwitchCommand& other) const {
  return std::tie(at, kind, day, place) <=> std::tie(other.at, other.kind, other.day, other.place);
}

std::optional<Moment> StopOf(const OvcRow& exception) {
  if (exception.stop == 0) return std::nullopt;
  const Moment stop =
      exception.HasStopDate() ? exception.stop : StartOf(DayOf(exception.start)) + exception.stop;
  return stop > exception.start ? std::optional(stop) : std::nullopt;
}

SwitchCommands::SwitchCommands(const Schedule& schedule, const Rule& rule)
    : types_(schedule.calendar), midnights_(rule.daysBeginAnew), standard_(schedule.standard) {
  for (std::size_t type = 0; type < kWeekdayDays; ++type) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) AddRow(type, row, schedule, rule);
    std::sort(week_.at(type).begin(), week_.at(type).end());
    busy_.set(type, !week_.at(type).empty());
  }
  for (std::size_t place = 0; place < schedule.exceptions.size(); ++place) {
    AddException(place, schedule, rule);
  }
  std::sort(exceptions_.begin(), exceptions_.end());
}

void SwitchCommands::AddRow(std::size_t type, std::size_t row, const Schedule& schedule,
                            const Rule& rule) {
  const WeekdayRow& cells = schedule.weekdays.days.at(type).at(row);
  if (!cells.Used()) return;
  const int line = schedule.weekdayLines.at(type).at(row);
  std::vector<SwitchCommand>& commands = week_.at(type);
  commands.push_back({cells.start, Kind::RowStart, 0, row, line, cells.valueOn});
  if (cells.stop == kNoTime) return;
  MaybeValue value = ValueOf(cells.valueOff);
  if (!value && rule.missingStopsHold) return;
  if (!value) value = schedule.standard;
  const bool nextDay = rule.earlyStopsNextDay && cells.stop <= cells.start;
  const Moment stop = cells.stop + (nextDay ? kMinutesOfDay : 0);
  commands.push_back({stop, Kind::RowStop, 0, row, line, value});
}

void SwitchCommands::AddException(std::size_t place, const Schedule& schedule, const Rule& rule) {
  const auto& [row, line] = schedule.exceptions.at(place);
  const std::optional<Moment> stop = StopOf(row);
  if (row.valueOn != kNoValue && (!stop || rule.exceptionsCommand)) {
    exceptions_.push_back({row.start, Kind::Exception, 0, place, line, row.valueOn});
  }
  if (stop && row.valueOff != kNoValue) {
    exceptions_.push_back({*stop, Kind::ExceptionStop, 0, place, line, row.valueOff});
  }
}

std::optional<SwitchCommand> SwitchCommands::Last(Moment moment) const {
  std::optional<SwitchCommand> last;
  const auto take = [&last](const SwitchCommand& command) {
    if (!last || *last < command) last = command;
  };
  const DayNumber today = DayOf(moment);
  if (midnights_) take({StartOf(today), Kind::None, 0, 0, 0, standard_});
  const auto exception = std::upper_bound(exceptions_.begin(), exceptions_.end(), moment, kAfter);
  if (exception != exceptions_.begin()) take(*(exception - 1));
  for (auto day = types_.LastOf(busy_, today); day; day = types_.LastOf(busy_, *day - 1)) {
    if (last && StartOf(*day + kReach) < last->at) break;
    const std::vector<SwitchCommand>& commands = week_.at(types_.Of(*day));
    const auto end =
        std::upper_bound(commands.begin(), commands.end(), moment - StartOf(*day), kAfter);
    if (end != commands.begin()) take(OnDay(*(end - 1), *day));
  }
  return last;
}

template <class Wanted>
std::optional<Moment> SwitchCommands::NextWanted(Moment moment, const TypeSet& types,
                                                 Wanted wanted) const {
  std::optional<Moment> next;
  const auto take = [&next](Moment at) { next = std::min(at, next.value_or(at)); };
  const DayNumber today = DayOf(moment);
  if (midnights_ && wanted(SwitchCommand{0, Kind::None, 0, 0, 0, standard_})) {
    take(StartOf(today + 1));
  }
  const auto first = std::upper_bound(exceptions_.begin(), exceptions_.end(), moment, kAfter);
  const auto exception = std::find_if(first, exceptions_.end(), wanted);
  if (exception != exceptions_.end()) take(exception->at);
  for (auto day = types_.NextOf(types, today - kReach); day; day = types_.NextOf(types, *day + 1)) {
    if (next && StartOf(*day) >= *next) break;
    const std::vector<SwitchCommand>& commands = week_.at(types_.Of(*day));
    const auto after =
        std::upper_bound(commands.begin(), commands.end(), moment - StartOf(*day), kAfter);
    const auto command = std::find_if(after, commands.end(), wanted);
    if (command != commands.end()) take(StartOf(*day) + command->at);
  }
  return next;
}

std::optional<Moment> SwitchCommands::Next(Moment moment) const {
  return NextWanted(moment, busy_, [](const SwitchCommand&) { return true; });
}

std::optional<Moment> SwitchCommands::NextOther(Moment moment, MaybeValue value) const {
  const auto other = [&value](const SwitchCommand& command) { return command.value != value; };
  TypeSet types;
  for (std::size_t type = 0; type < kWeekdayDays; ++type) {
    types.set(type, std::any_of(week_.at(type).begin(), week_.at(type).end(), other));
  }
  return NextWanted(moment, types, other);
}

std::vector<SwitchCommand> SwitchCommands::At(Moment minute) const {
  std::vector<SwitchCommand> found;
  const auto add = [&found](const std::vector<SwitchCommand>& commands, Moment at, DayNumber day) {
    const auto first = std::lower_bound(commands.begin(), commands.end(), at, kBefore);
    const auto last = std::upper_bound(first, commands.end(), at, kAfter);
    for (auto each = first; each != last; ++each) found.push_back(OnDay(*each, day));
  };
  const DayNumber today = DayOf(minute);
  add(exceptions_, minute, 0);
  for (DayNumber day = today - kReach; day <= today; ++day) {
    add(week_.at(types_.Of(day)), minute - StartOf(day), day);
  }
  if (midnights_ && minute == StartOf(today)) {
    found.push_back({minute, Kind::None, 0, 0, 0, standard_});
  }
  std::sort(found.rbegin(), found.rend());
  return found;
}

}  // namespace zek
