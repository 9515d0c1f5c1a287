#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"

namespace zek {

/// Lists the controllers; they can be added, changed and removed. Modal. A change disconnects.
void ShowTopics(wxWindow* parent, ZV_Proc& proc);

/// Asks for a new controller and adds it. Modal.
void AddTopic(wxWindow* parent, ZV_Proc& proc);

}  // namespace zek
