#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// `ZV_WDC`, the weekday editor: shows a weekday catalogue of the selected node, lets the user edit
/// it and, on "Spara", hands it to the catalogue write. Modal: returns when the editor was closed.
void ShowWeekdayForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                     const CatalogueContent& content);

}  // namespace zek
