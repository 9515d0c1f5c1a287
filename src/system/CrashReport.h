#pragma once

#include <string>
#include <string_view>

namespace zek {

/// The folder of the reports, in the data folder. Their names begin with the time:
/// "20261122-213506-zekview-1234.txt".
inline constexpr const char* kCrashFolder = "Crashes";

/// From now on a crash of this program leaves a report in `dataFolder` (UTF-8, with a separator at
/// its end): version, time, fault, and where, as modules with offsets. It holds nothing of the
/// memory. Then the program ends. Faults that somebody handles already, for example a sanitizer,
/// stay with him. Call it once.
void CatchCrashes(const std::string& dataFolder, const std::string& program);

/// From now on a crash is also recorded in the system's log of events, as a failure.
void RecordCrashes();

/// The same report for an exception that nobody caught; to be called while it is handled.
void ReportException();

}  // namespace zek
