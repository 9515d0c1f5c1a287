#pragma once

#include <cstdint>

#include "import/ImportedDates.h"

namespace zek {

/// The day types for groups of Swedish holidays; `kNoDayType`: the group is not wanted.
struct HolidayGroups {
  std::int16_t byLaw = kNoDayType;
  std::int16_t deFacto = kNoDayType;  // Midsummer Eve, Christmas Eve, New Year's Eve
  std::int16_t eves = kNoDayType;     // the eves of Easter and Pentecost
};

/// Returns the holidays of the years, with the types of their groups, like those of a file.
ImportedDates HolidayDates(int firstYear, int lastYear, const HolidayGroups& groups,
                           const ImportWindow& window);

}  // namespace zek
