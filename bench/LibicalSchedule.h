#pragma once

#include <cstddef>
#include <string>

#include "formats/WeekdayTable.h"

namespace zek::bench {

/// Returns the same schedule as iCalendar text: one weekly event for each used row of each day.
std::string IcalendarOf(const WeekdayTable& table);

/// Returns the number of events that libical finds in the text.
std::size_t CountEvents(const std::string& calendar);

/// Parses the text with libical and returns it written again.
std::string ParsedAndSerialised(const std::string& calendar);

}  // namespace zek::bench
