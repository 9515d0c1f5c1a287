#pragma once

#include <vector>

#include <wx/dialog.h>
#include <wx/sizer.h>

#include "system/Prompts.h"

namespace zek {

/// A message box, with or without scrollable lines below its message. The user can make it larger;
/// text that does not fit scrolls. The lines are read only but can be selected and copied. The
/// default button has the focus. Escape and closing the box press the last button.
class PromptBox final : public wxDialog {
 public:
  struct Content {
    Icon icon = Icon::None;
    wxString caption;
    wxString message;
    wxString label;  // above the lines
    wxString lines;  // "" for a box without lines
  };
  struct Button {
    int id;
    wxString label;  // "" for the system's label
  };

  /// `standard`: the id of the default button.
  PromptBox(wxWindow* parent, const Content& content, const std::vector<Button>& buttons,
            int standard);

 private:
  wxSizer* Head(const Content& content);
  wxWindow* Message(const wxString& message);
  wxWindow* Lines(const Content& content);
  wxSizer* Buttons(const std::vector<Button>& buttons, int standard);
};

}  // namespace zek
