#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "comm/ReplyLog.h"

namespace zek {

/// What stands before a line's text where times are shown: "2026-11-22 08:30:00.250  ", or "" for a
/// line without a time.
std::string TimeBefore(const LocalTime& since);

/// A line as it is shown, with or without its time; "" if the log no longer has it.
std::string LogLine(const ReplyLog& log, std::uint64_t number, bool times);

/// The lines from `first` up to `end`, each with `lineEnd`.
std::string LogText(const ReplyLog& log, std::uint64_t first, std::uint64_t end, bool times,
                    std::string_view lineEnd = "\r\n");

}  // namespace zek
