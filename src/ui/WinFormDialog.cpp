#include <wx/msw/wrapwin.h>

#include "ui/FormDialog.h"

namespace zek {

bool FormDialog::MSWTranslateMessage(WXMSG* message) {
  return wxDialog::MSWTranslateMessage(message) ||
         (message->message == WM_SYSCHAR && MSWProcessMessage(message));
}

}  // namespace zek
