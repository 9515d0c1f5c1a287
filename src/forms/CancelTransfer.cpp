#include "forms/CancelTransfer.h"

#include "lang/TextNumbers.h"

namespace zek {

void CancelTransfer(ZV_Proc& proc) {
  if (proc.status.Sending.of == 0) return proc.waits.Cancel();
  if (proc.status.Asking) return;
  proc.status.Asking = true;
  const bool stop = proc.prompts.Own().AskYesNo(
      Icon::Exclamation,
      proc.Text(proc.status.Sending.shared ? text::kAskStopShared : text::kAskStopSending),
      proc.Text(text::kAskStopTitle), DefaultAnswer::No);
  proc.status.Asking = false;
  // The end of the sending is near, or it is over: what follows is not what the user meant.
  if (stop && proc.status.Sending.of > 0) proc.waits.Cancel();
}

}  // namespace zek
