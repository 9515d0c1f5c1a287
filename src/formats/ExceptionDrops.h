#pragma once

#include <string>
#include <vector>

#include "formats/ExceptionTable.h"
#include "formats/ExceptionText.h"

namespace zek {

/// The rows whose stop time no line of theirs can hold, as "24-DEC-26,08:00..17:00": on a ZEK1 a
/// stop stands in the line with its date or not at all.
std::vector<std::string> LostStopTimes(const ExceptionTable& table, Generation generation);

}  // namespace zek
