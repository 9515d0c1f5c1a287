#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// `ZV_OVC`, the exception editor: shows an exception catalogue of the selected node, lets the user
/// edit it and, on "Spara", hands it to the catalogue write. Modal: returns when the editor was
/// closed.
void ShowExceptionForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                       const CatalogueContent& content);

}  // namespace zek
