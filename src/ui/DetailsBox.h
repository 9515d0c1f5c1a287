#pragma once

#include <wx/button.h>
#include <wx/dialog.h>

namespace zek {

/// A message box with lines below its message: read only, scrolled, to be selected and copied. The
/// default button has the focus; Tab leads to the lines, Escape is No.
class DetailsBox final : public wxDialog {
 public:
  struct Content {
    long style = 0;  // of a message box: wxOK or wxYES_NO, its default button, its icon
    wxString caption;
    wxString message;
    wxString label;  // of the lines
    wxString lines;
  };

  DetailsBox(wxWindow* parent, const Content& content);

  void SetYesNoLabels(const wxString& yes, const wxString& no);

 private:
  wxSizer* Head(const Content& content);
  wxWindow* Lines(const Content& content);
  wxSizer* Buttons(long style);
};

}  // namespace zek
