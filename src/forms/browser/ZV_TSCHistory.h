#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Shows the earlier local copies of the selected node's catalogues, how each differs from the
/// present one, and restores the one that the user chooses. Modal.
void ShowHistory(wxWindow* parent, ZV_Proc& proc);

}  // namespace zek
