#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// `ZV_SDC`, the calendar editor: shows the special-day calendar in `proc.transfer` of the selected
/// node, lets the user give days their types and, on "Spara", hands it to the catalogue write.
/// Modal: returns when the editor was closed.
void ShowCalendarForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn);

}  // namespace zek
