#pragma once

#include <cstddef>
#include <optional>

#include "formats/WeekdayTable.h"

namespace zek {

// An entry that was edited has no catalogue line yet. In a schedule, such an entry has a number
// below 0 instead, which says where it stands in its table.

/// Where an entry stands that has no line.
struct TablePlace {
  std::size_t day = 0;  // of a weekday row; of an exception 0
  std::size_t row = 0;
};

constexpr int NumberOfPlace(TablePlace place) {
  return -1 - static_cast<int>(place.day * kWeekdayRows + place.row);
}

/// Returns the place that a number stands for; nothing for a line's number.
constexpr std::optional<TablePlace> PlaceOfNumber(int number) {
  if (number >= 0) return std::nullopt;
  const auto place = static_cast<std::size_t>(-1 - number);
  return TablePlace{place / kWeekdayRows, place % kWeekdayRows};
}

}  // namespace zek
