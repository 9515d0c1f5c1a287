#pragma once

#include <string>

#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace zek {

/// A text box of an editor's grid: fixed pitch, wide enough for `widest`, its whole text selected
/// when it gets the focus. A box that is not editable shows that it is not.
wxTextCtrl* NewEntryBox(wxWindow* parent, const std::string& name, const wxString& widest,
                        bool editable);

/// Shows the heading of a row or column as that of the current one, or takes that back.
void MarkLabel(wxStaticText& heading, bool current);

}  // namespace zek
