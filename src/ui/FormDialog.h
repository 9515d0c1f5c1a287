#pragma once

#include <wx/dialog.h>

namespace zek {

/// A dialog whose buttons answer to Alt and their letter from every control in it. On Windows the
/// toolkit looks for the letter only inside the frame or panel that holds the focus.
class FormDialog : public wxDialog {
 public:
  using wxDialog::wxDialog;

#ifdef __WXMSW__
  bool MSWTranslateMessage(WXMSG* message) override;
#endif
};

}  // namespace zek
