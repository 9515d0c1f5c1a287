#pragma once

#include <bitset>
#include <optional>
#include <vector>

#include "forecast/Schedule.h"

namespace zek {

/// A set of day types 0 to 13.
using TypeSet = std::bitset<kWeekdayDays>;

/// The day type of every date: that of its first calendar entry, else its weekday.
class DayTypes {
 public:
  explicit DayTypes(std::vector<DatedType> calendar);

  std::size_t Of(DayNumber day) const;

  /// Returns the calendar entry that gives a date its type; null without one.
  const DatedType* EntryOf(DayNumber day) const;

  /// Returns the last day up to `day`, or the first one from it on, whose type is in `types`. The
  /// weekdays have neither beginning nor end, so nothing means that there is none at all.
  std::optional<DayNumber> LastOf(const TypeSet& types, DayNumber day) const;
  std::optional<DayNumber> NextOf(const TypeSet& types, DayNumber day) const;

  /// Sorted, one for each date.
  const std::vector<DatedType>& Dated() const { return dated_; }

 private:
  std::vector<DatedType> dated_;
};

}  // namespace zek
