#pragma once

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "export/BatchReport.h"

namespace zek {

/// Shows how a batch export ended: how many catalogues were exported, which were not and why, and
/// where the files are. Modal.
void ShowBatchSummary(wxWindow* parent, const ZV_Proc& proc, const BatchReport& report);

}  // namespace zek
