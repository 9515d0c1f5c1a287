#include "findings/Effect.h"

#include <algorithm>
#include <set>

namespace zek {
namespace {

// Ten years of the calendar from `today` on; 29 February becomes 1 March.
Moment TenYearsAfter(DayNumber today) {
  const DateParts date = DateOf(StartOf(today));
  return DateMoment(date.year + 10, date.month, date.day);
}

// The times that have to be compared: a stretch without dated entries repeats every week as soon as
// its first week is over.
std::vector<std::pair<Moment, Moment>> TimesToCompare(const Schedule& schedule, DayNumber today) {
  constexpr DayNumber enoughDays = 28;
  const Moment from = StartOf(today);
  const Moment to = TenYearsAfter(today);
  std::vector<Moment> begins = {from};
  for (const DatedType& dated : schedule.calendar) begins.push_back(StartOf(dated.day));
  for (const auto& [row, line] : schedule.exceptions) {
    begins.push_back(row.start);
    begins.push_back(StopOf(row).value_or(row.start));
  }
  std::sort(begins.begin(), begins.end());
  std::vector<std::pair<Moment, Moment>> times;
  for (const Moment begin : begins) {
    const Moment end = std::min(begin + StartOf(enoughDays), to);
    if (end <= from || begin >= to) continue;
    if (!times.empty() && begin <= times.back().second) {
      times.back().second = end;
    } else {
      times.emplace_back(std::max(begin, from), end);
    }
  }
  return times;
}

bool MayBeWithoutEffect(const OvcRow& row, DayNumber today) {
  if (row.valueOn == kNoValue && row.valueOff == kNoValue) return false;  // told as empty
  return StopOf(row).value_or(row.start) > StartOf(today);
}

Schedule WithoutRow(Schedule schedule, int line) {
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      if (schedule.weekdayLines.at(day).at(row) == line)
        schedule.weekdays.days.at(day).at(row) = {};
    }
  }
  return schedule;
}

}  // namespace

TypeSet ComingTypes(const Schedule& schedule, DayNumber today) {
  TypeSet types;
  const DayTypes all(schedule.calendar);
  for (const DatedType& dated : all.Dated()) {
    if (dated.day >= today) types.set(dated.type);
  }
  return types;
}

std::vector<Doubt> DoubtsOfRows(const Schedule& schedule, DayNumber today) {
  TypeSet judged = ComingTypes(schedule, today);
  for (std::size_t day = 0; day < kDaysOfType; ++day) judged.set(day);
  std::set<int> lines;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    if (!judged.test(day)) continue;  // told as a type without dates
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      if (schedule.weekdays.days.at(day).at(row).Used())
        lines.insert(schedule.weekdayLines.at(day).at(row));
    }
  }
  std::vector<Doubt> doubts;
  doubts.reserve(lines.size());
  for (const int line : lines) doubts.push_back({FindingKind::RowNoEffect, line});
  return doubts;
}

std::vector<Doubt> DoubtsOfExceptions(const Schedule& schedule, DayNumber today) {
  std::vector<Doubt> doubts;
  for (const ExceptionLine& each : schedule.exceptions) {
    if (MayBeWithoutEffect(each.row, today))
      doubts.push_back({FindingKind::ExceptionNoEffect, each.number});
  }
  return doubts;
}

std::vector<Doubt> DoubtsOfDates(const Schedule& schedule, DayNumber today) {
  std::set<int> lines;
  for (const DatedType& dated : schedule.calendar)
    if (dated.day >= today) lines.insert(dated.line);
  std::vector<Doubt> doubts;
  doubts.reserve(lines.size());
  for (const int line : lines) doubts.push_back({FindingKind::DateNoEffect, line});
  return doubts;
}

Schedule Without(Schedule schedule, const Doubt& doubt) {
  const int line = doubt.line;
  if (doubt.kind == FindingKind::RowNoEffect) return WithoutRow(std::move(schedule), line);
  if (doubt.kind == FindingKind::ExceptionNoEffect) {
    std::erase_if(schedule.exceptions, [line](const auto& each) { return each.number == line; });
  } else {
    std::erase_if(schedule.calendar, [line](const auto& each) { return each.line == line; });
  }
  return schedule;
}

ValueComparison::ValueComparison(Schedule with, Schedule without, DayNumber today)
    : with_(std::move(with)),
      without_(std::move(without)),
      times_(TimesToCompare(with_, today)),
      variants_(Rule::Variants()) {}

bool ValueComparison::BeginVariant() {
  if (variant_ == variants_.size() || times_.empty()) return false;
  one_.emplace(with_, variants_[variant_]);
  other_.emplace(without_, variants_[variant_]);
  time_ = 0;
  at_ = times_.front().first;
  return true;
}

std::optional<bool> ValueComparison::Step(std::size_t events) {
  if (!one_ && !BeginVariant()) return false;
  for (; events > 0; --events) {
    if (one_->At(at_).value != other_->At(at_).value) return true;
    const Moment to = times_[time_].second;
    at_ = std::min(one_->NextEvent(at_).value_or(to), other_->NextEvent(at_).value_or(to));
    if (at_ < to) continue;
    if (++time_ < times_.size()) {
      at_ = times_[time_].first;
      continue;
    }
    ++variant_;
    if (!BeginVariant()) return false;
  }
  return std::nullopt;
}

bool HaveEffect(const Schedule& schedule, const Doubt& doubt, DayNumber today) {
  constexpr std::size_t events = 1000;
  ValueComparison comparison(schedule, Without(schedule, doubt), today);
  std::optional<bool> differ;
  while (!differ) differ = comparison.Step(events);
  return *differ;
}

}  // namespace zek
