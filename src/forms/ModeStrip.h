#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Returns a strip that says that the program works in local mode, only views, or shows a
/// demonstration; null if none of them is so.
wxWindow* NewModeStrip(wxWindow* parent, const ZV_Proc& proc);

}  // namespace zek
