#pragma once

#include <wx/button.h>
#include <wx/dialog.h>

namespace zek {

/// A message box with scrollable lines below its message. The lines are read only but can be
/// selected and copied. The default button has the focus. Tab moves to the lines. Escape means No.
class DetailsBox final : public wxDialog {
 public:
  struct Content {
    long style = 0;  // wxOK or wxYES_NO, with the default button and the icon
    wxString caption;
    wxString message;
    wxString label;  // above the lines
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
