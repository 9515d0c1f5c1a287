#include "forecast/Replay.h"

#include <algorithm>

namespace zek::trials {
namespace {

using Kind = SwitchSource::Kind;
constexpr Moment kDay = 1440;

// The kinds of commands of one minute, the later one wins.
enum Rank : std::int8_t { Midnight, ExceptionStop, WeekdayStop, WeekdayStart, ExceptionPoint };

MaybeValue Said(float value) { return value == 999999.F ? MaybeValue() : MaybeValue(value); }

}  // namespace

Replay::Replay(const Schedule& schedule, const Rule& rule, DayNumber first, DayNumber days)
    : schedule_(schedule), rule_(rule), start_(first * kDay) {
  for (DayNumber date = first - 3; date < first + days; ++date) types_.push_back(TypeOn(date));
  Replayed now;
  now.applied.value = schedule.standard;
  for (Moment minute = start_; minute < start_ + days * kDay; ++minute) {
    now = Next(now, minute);
    minutes_.push_back(now);
  }
}

const Replayed& Replay::At(Moment moment) const {
  return minutes_.at(static_cast<std::size_t>(moment - start_));
}

std::size_t Replay::TypeOn(DayNumber date) const {
  for (const DatedType& entry : schedule_.calendar)
    if (entry.day == date) return entry.type;
  return static_cast<std::size_t>((date + 5) % 7);  // day 0 was a Saturday
}

Replayed Replay::Next(const Replayed& before, Moment now) const {
  Replayed next = before;
  next.event = false;
  std::vector<Commanded> commands = CommandsAt(now);
  if (!commands.empty()) next.commanded = now;
  next.mask = MaskAt(now);
  if (next.mask) {
    const ExceptionLine& exception = schedule_.exceptions[*next.mask];
    next.applied = {exception.row.valueOn, {Kind::Exception, exception.number}};
    next.event = next.mask != before.mask;
  } else if (!commands.empty()) {
    next.applied = commands.back().applied;
    next.event = true;
  } else if (before.mask) {  // what lies beneath returns
    next.applied = {schedule_.standard, {}};
    if (next.commanded >= 0) next.applied = CommandsAt(next.commanded).back().applied;
    next.event = true;
  }
  return next;
}

// The one that wins last.
std::vector<Commanded> Replay::CommandsAt(Moment now) const {
  std::vector<Commanded> commands;
  if (rule_.daysBeginAnew && now % kDay == 0) {
    commands.push_back({{Midnight}, {schedule_.standard, {}}});
  }
  for (DayNumber back = 0; back <= 3; ++back) AddWeekday(commands, now, now / kDay - back);
  AddExceptions(commands, now);
  std::sort(commands.begin(), commands.end(),
            [](const Commanded& one, const Commanded& other) { return one.order < other.order; });
  return commands;
}

void Replay::AddWeekday(std::vector<Commanded>& commands, Moment now, DayNumber date) const {
  const std::size_t type = types_.at(static_cast<std::size_t>(date - start_ / kDay + 3));
  for (std::size_t place = 0; place < kWeekdayRows; ++place) {
    const WeekdayRow& row = schedule_.weekdays.days[type][place];
    if (row.start < 0) continue;
    const int line = schedule_.weekdayLines[type][place];
    const auto at = static_cast<std::int64_t>(place);
    if (date * kDay + row.start == now) {
      commands.push_back({{WeekdayStart, date, at}, {row.valueOn, {Kind::RowStart, line}}});
    }
    if (row.stop < 0) continue;
    const bool missing = !Said(row.valueOff);
    if (missing && rule_.missingStopsHold) continue;
    const bool late = rule_.earlyStopsNextDay && row.stop <= row.start;
    if ((date + (late ? 1 : 0)) * kDay + row.stop != now) continue;
    const MaybeValue value = missing ? schedule_.standard : Said(row.valueOff);
    commands.push_back({{WeekdayStop, date, at}, {value, {Kind::RowStop, line}}});
  }
}

// Without a stop it is before every start.
Moment Replay::StopOf(std::size_t place) const {
  const OvcRow& row = schedule_.exceptions[place].row;
  if (row.stop == 0) return -1;
  return row.stop > kDay ? row.stop : row.start / kDay * kDay + row.stop;
}

bool Replay::Masks(std::size_t place, Moment now) const {
  const OvcRow& row = schedule_.exceptions[place].row;
  return !rule_.exceptionsCommand && Said(row.valueOn) && row.start <= now && now < StopOf(place);
}

std::optional<std::size_t> Replay::MaskAt(Moment now) const {
  std::optional<std::size_t> best;
  for (std::size_t place = 0; place < schedule_.exceptions.size(); ++place) {
    if (!Masks(place, now)) continue;
    const auto start = [this](std::size_t of) { return schedule_.exceptions[of].row.start; };
    if (!best || start(place) >= start(*best)) best = place;
  }
  return best;
}

void Replay::AddExceptions(std::vector<Commanded>& commands, Moment now) const {
  for (std::size_t place = 0; place < schedule_.exceptions.size(); ++place) {
    const auto& [row, line] = schedule_.exceptions[place];
    const auto at = static_cast<std::int64_t>(place);
    const bool point = StopOf(place) <= row.start;
    if (now == row.start && Said(row.valueOn) && (point || rule_.exceptionsCommand)) {
      commands.push_back({{ExceptionPoint, at}, {row.valueOn, {Kind::Exception, line}}});
    }
    if (now == StopOf(place) && !point && Said(row.valueOff)) {
      commands.push_back({{ExceptionStop, at}, {row.valueOff, {Kind::ExceptionStop, line}}});
    }
  }
}

std::vector<Applied> Replay::Beaten(Moment moment) const {
  const Replayed& now = At(moment);
  std::vector<Applied> beaten;
  std::vector<Commanded> commands;
  if (now.commanded >= 0) commands = CommandsAt(now.commanded);
  std::reverse(commands.begin(), commands.end());
  if (!now.mask) {
    for (std::size_t at = 1; at < commands.size(); ++at) beaten.push_back(commands[at].applied);
    return beaten;
  }
  std::vector<std::vector<std::int64_t>> active;  // start and place of those that lost
  for (std::size_t place = 0; place < schedule_.exceptions.size(); ++place) {
    if (place == *now.mask || !Masks(place, moment)) continue;
    active.push_back({schedule_.exceptions[place].row.start, static_cast<std::int64_t>(place)});
  }
  std::sort(active.rbegin(), active.rend());
  for (const auto& each : active) {
    const ExceptionLine& lost = schedule_.exceptions[static_cast<std::size_t>(each[1])];
    beaten.push_back({lost.row.valueOn, {Kind::Exception, lost.number}});
  }
  if (!commands.empty()) beaten.push_back(commands.front().applied);
  return beaten;
}

}  // namespace zek::trials
