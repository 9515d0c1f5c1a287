#pragma once

#include <string>
#include <vector>

#include <wx/window.h>

#include "app/ControlCatalogues.h"

namespace zek {

/// What the window shows: a schedule, and what to say about it.
struct AppliesTo {
  Schedule schedule;
  std::string node;                  // "SKOLA/AHU1"
  std::vector<std::string> remarks;  // above the picture
};

/// Returns what to show of catalogues that were read. `edited` is the one that `schedule` has as
/// edited.
AppliesTo AppliesOf(const ZV_Proc& proc, const ControlCatalogues& catalogues, Schedule schedule,
                    std::optional<Catalogue> edited);

/// Opens `ZV_Applies`: what applies to the selected time control, week by week, and why. Modal.
void ShowApplies(wxWindow* parent, ZV_Proc& proc, AppliesTo shown);

}  // namespace zek
