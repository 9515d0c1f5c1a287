#pragma once

#include <wx/string.h>
#include <wx/window.h>

namespace zek {

/// What a screen reader says for a control that has no caption of its own; a new name is said at
/// once when the control has the focus. Where the toolkit offers no way to say it, nothing happens.
void SetAccessibleName(wxWindow& window, const wxString& name);

/// The same for a control that draws a grid of its own: the cell under its cursor, and whether
/// that is selected.
void SetAccessibleCell(wxWindow& grid, const wxString& name, bool selected);

}  // namespace zek
