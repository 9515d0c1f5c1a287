#pragma once

#include <wx/string.h>
#include <wx/window.h>

namespace zek {

/// Sets what a screen reader says for a control without a caption. If the control has the focus,
/// a new name is spoken at once. Does nothing where the toolkit has no accessibility support.
void SetAccessibleName(wxWindow& window, const wxString& name);

/// The same for a control that draws its own grid: the name of the cell under its cursor, and
/// whether that cell is selected.
void SetAccessibleCell(wxWindow& grid, const wxString& name, bool selected);

}  // namespace zek
