#pragma once

#include "forecast/Schedule.h"

namespace zek {

// Put an edited table into the schedule of a catalogue as it was read. Entries that are as they
// were read keep the number of their line, the others get `NumberOfPlace`.

void PutWeekdays(Schedule& schedule, const WeekdayTable& edited);
void PutExceptions(Schedule& schedule, const ExceptionTable& edited);
void PutCalendar(Schedule& schedule, const CalendarTable& edited);

}  // namespace zek
