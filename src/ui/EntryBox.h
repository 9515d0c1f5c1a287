#pragma once

#include <string>

#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace zek {

/// Creates a text box for an editor's grid: fixed pitch, wide enough for `widest`, at most 20
/// characters. Its whole text is selected when it gets the focus. A read-only box is grey.
wxTextCtrl* NewEntryBox(wxWindow* parent, const std::string& name, const wxString& widest,
                        bool editable);

/// Highlights the heading of the current row or column, or removes the highlight.
void MarkLabel(wxStaticText& heading, bool current);

}  // namespace zek
