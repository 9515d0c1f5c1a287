#pragma once

#include <cstddef>
#include <optional>

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// Opens `ZV_Several`: one change of many time controls, in three steps: the controls, the changes,
/// the plan. A plan that has not ended is offered first. Modal. `ticked` is the node of the tree
/// that the user comes from.
void ShowSeveral(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, std::optional<std::size_t> ticked);

/// True if a plan has not ended and can be sent.
bool HasOpenPlan(ZV_Proc& proc);

}  // namespace zek
