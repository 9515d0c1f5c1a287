#include "forecast/Forecast.h"

#include <algorithm>

namespace zek {
namespace {

std::vector<ExceptionLine> MaskingOf(const Schedule& schedule, const Rule& rule) {
  return rule.exceptionsCommand ? std::vector<ExceptionLine>() : schedule.exceptions;
}

Applied AppliedBy(const SwitchCommand& command) { return {command.value, command.Source()}; }

Applied AppliedBy(const ExceptionLine& exception) {
  return {ValueOf(exception.row.valueOn), {SwitchSource::Kind::Exception, exception.number}};
}

}  // namespace

Forecast::Forecast(const Schedule& schedule, const Rule& rule)
    : commands_(schedule, rule), masks_(MaskingOf(schedule, rule)), standard_(schedule.standard) {
  for (const DatedType& dated : schedule.calendar) {
    lastDated_ = std::max(lastDated_, StartOf(dated.day + 1));
  }
  for (const auto& [row, line] : schedule.exceptions) {
    lastDated_ = std::max(lastDated_, StopOf(row).value_or(row.start));
  }
}

Applied Forecast::Beneath(Moment moment) const {
  const std::optional<SwitchCommand> command = commands_.Last(moment);
  return command ? AppliedBy(*command) : Applied{standard_, {}};
}

Applied Forecast::At(Moment moment) const {
  const Mask* const mask = masks_.At(moment);
  return mask == nullptr ? Beneath(moment) : AppliedBy(masks_.Exception(*mask));
}

std::optional<Moment> Forecast::LastEvent(Moment moment) const {
  if (const Mask* const mask = masks_.At(moment)) return mask->from;
  const std::optional<SwitchCommand> command = commands_.Last(moment);
  const Mask* const ended = masks_.EndedBefore(moment);
  if (ended == nullptr) return command ? std::optional(command->at) : std::nullopt;
  return command ? std::max(command->at, ended->to) : ended->to;
}

std::optional<Moment> Forecast::NextEvent(Moment moment) const {
  if (const Mask* const mask = masks_.At(moment)) return mask->to;
  const std::optional<Moment> command = commands_.Next(moment);
  const Mask* const mask = masks_.BeginningAfter(moment);
  if (mask == nullptr) return command;
  return command ? std::min(*command, mask->from) : mask->from;
}

std::optional<Moment> Forecast::NextChange(Moment moment) const {
  // A stretch without dated entries repeats every week as soon as its first week is over.
  constexpr DayNumber enoughDays = 28;
  const Moment horizon = std::max(moment, lastDated_) + StartOf(enoughDays);
  const MaybeValue value = At(moment).value;
  while (moment <= horizon) {
    std::optional<Moment> next;
    if (const Mask* const mask = masks_.At(moment)) {
      next = mask->to;
    } else {
      next = commands_.NextOther(moment, value);
      const Mask* const begins = masks_.BeginningAfter(moment);
      if (begins != nullptr) next = std::min(begins->from, next.value_or(begins->from));
    }
    if (!next || At(*next).value != value) return next;
    moment = *next;
  }
  return std::nullopt;
}

std::vector<Applied> Forecast::Beaten(Moment moment) const {
  std::vector<Applied> beaten;
  const std::optional<SwitchCommand> command = commands_.Last(moment);
  if (masks_.At(moment) != nullptr) {
    for (const ExceptionLine& active : masks_.ActiveAt(moment)) beaten.push_back(AppliedBy(active));
    beaten.erase(beaten.begin());  // it applies
    if (command) beaten.push_back(AppliedBy(*command));
  } else if (command) {
    const std::vector<SwitchCommand> commands = commands_.At(command->at);
    for (auto each = commands.begin() + 1; each != commands.end(); ++each) {
      beaten.push_back(AppliedBy(*each));
    }
  }
  return beaten;
}

std::vector<Stretch> Forecast::Timeline(Moment from, Moment to) const {
  std::vector<Stretch> stretches;
  for (std::optional<Moment> at = from; at && *at < to; at = NextEvent(*at)) {
    const Applied applied = At(*at);
    if (!stretches.empty() && stretches.back().applied == applied) continue;
    if (!stretches.empty()) stretches.back().to = *at;
    stretches.push_back({*at, to, applied});
  }
  return stretches;
}

}  // namespace zek
