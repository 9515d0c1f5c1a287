#pragma once

#include "app/ZV_Proc.h"

namespace zek {

/// Tells of the crashes since the last time (see `CatchCrashes`) with the path of the newest
/// report, once: in a message and in the log, with "/BATCH" only in the log. Of all reports the
/// last ten are kept.
void TellCrashes(ZV_Proc& proc);

}  // namespace zek
