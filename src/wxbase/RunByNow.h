#pragma once

#include "catalogue/OpenMarks.h"

namespace zek {

/// Returns who runs this program, and where.
RunBy RunByNow();

}  // namespace zek
