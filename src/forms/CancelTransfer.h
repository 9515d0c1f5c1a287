#pragma once

#include "app/ZV_Proc.h"

namespace zek {

/// Cancels the running transfer, if that is possible. While lines are being sent, asks first: what
/// was sent stays in the controller. Call it in a handler of its own, since the question runs
/// events.
void CancelTransfer(ZV_Proc& proc);

}  // namespace zek
