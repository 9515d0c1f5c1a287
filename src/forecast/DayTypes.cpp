#include "forecast/DayTypes.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zek {
namespace {

constexpr auto kByDay = [](const DatedType& entry, DayNumber day) { return entry.day < day; };

// Returns the nearest day whose weekday is in `types`, `day` itself or in the direction of `step`.
std::optional<DayNumber> NearestWeekday(const TypeSet& types, DayNumber day, DayNumber step) {
  for (std::size_t tried = 0; tried < kDaysOfType; ++tried, day += step) {
    if (types.test(WeekdayOf(day))) return day;
  }
  return std::nullopt;
}

}  // namespace

DayTypes::DayTypes(std::vector<DatedType> calendar) : dated_(std::move(calendar)) {
  std::stable_sort(dated_.begin(), dated_.end(),
                   [](const auto& left, const auto& right) { return left.day < right.day; });
  const auto sameDay = [](const auto& left, const auto& right) { return left.day == right.day; };
  dated_.erase(std::unique(dated_.begin(), dated_.end(), sameDay), dated_.end());
}

const DatedType* DayTypes::EntryOf(DayNumber day) const {
  const auto found = std::lower_bound(dated_.begin(), dated_.end(), day, kByDay);
  return found == dated_.end() || found->day != day ? nullptr : &*found;
}

std::size_t DayTypes::Of(DayNumber day) const {
  const DatedType* const entry = EntryOf(day);
  return entry == nullptr ? WeekdayOf(day) : entry->type;
}

std::optional<DayNumber> DayTypes::NextOf(const TypeSet& types, DayNumber day) const {
  auto dated = std::lower_bound(dated_.begin(), dated_.end(), day, kByDay);
  for (;; day = dated->day + 1, ++dated) {
    const std::optional<DayNumber> plain = NearestWeekday(types, day, 1);
    if (dated == dated_.end() || (plain && *plain < dated->day)) return plain;
    if (types.test(dated->type)) return dated->day;
  }
}

std::optional<DayNumber> DayTypes::LastOf(const TypeSet& types, DayNumber day) const {
  auto dated =
      std::make_reverse_iterator(std::lower_bound(dated_.begin(), dated_.end(), day + 1, kByDay));
  for (;; day = dated->day - 1, ++dated) {
    const std::optional<DayNumber> plain = NearestWeekday(types, day, -1);
    if (dated == dated_.rend() || (plain && *plain > dated->day)) return plain;
    if (types.test(dated->type)) return dated->day;
  }
}

}  // namespace zek
