#pragma once

#include <string_view>
#include <vector>

#include "formats/CalendarTable.h"

namespace zek {

/// A holiday of Sweden. Sundays that are nothing else are not listed.
struct Holiday {
  CalendarDate date;
  std::string_view name;  // UTF-8
  bool isPublic = true;   // by law; false: only de facto, such as Christmas Eve
};

/// Returns the holidays of a year from 1990 on, by date. Two of them may share a date.
std::vector<Holiday> SwedishHolidays(int year);

/// True for a public holiday of Sweden from 1990 to 2099.
bool IsSwedishHoliday(const CalendarDate& date);

}  // namespace zek
