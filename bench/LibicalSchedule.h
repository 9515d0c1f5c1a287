#pragma once

#include <cstddef>
#include <string>

#include "formats/WeekdayTable.h"

namespace zek::bench {

/// The same schedule as iCalendar text: one weekly event for each used row of each day.
std::string IcalendarOf(const WeekdayTable& table);

/// The events that libical finds in the text.
std::size_t CountEvents(const std::string& calendar);

/// The text once through libical: parsed and written again.
std::string ParsedAndSerialised(const std::string& calendar);

}  // namespace zek::bench
