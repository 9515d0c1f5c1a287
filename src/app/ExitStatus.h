#pragma once

namespace zek {

/// The exit status of every program.
enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongUsage = 2 };

}  // namespace zek
