#include "formats/WeekdayTable.h"

#include <algorithm>

namespace zek {

std::size_t WeekdayTable::UsedRows(std::size_t type) const {
  std::size_t used = 0;
  for (std::size_t day = type * kDaysOfType; day < (type + 1) * kDaysOfType; ++day) {
    used += static_cast<std::size_t>(
        std::count_if(days[day].begin(), days[day].end(), [](auto& row) { return row.Used(); }));
  }
  return used;
}

}  // namespace zek
