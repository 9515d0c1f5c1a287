#pragma once

#include <functional>

#include "forecast/Schedule.h"

namespace zek {

/// Returns a schedule without the entries of a line.
Schedule WithoutRow(Schedule schedule, int line);
Schedule WithoutException(Schedule schedule, int line);
Schedule WithoutDates(Schedule schedule, int line);

/// True if, by any variant of the rule, any value in the ten years from `today` on differs between
/// two schedules. Every dated entry of `without` must also be in `with`.
bool HaveDifferentValues(const Schedule& with, const Schedule& without, DayNumber today);

}  // namespace zek
