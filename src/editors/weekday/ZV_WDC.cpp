#include "editors/weekday/ZV_WDC.h"

#include <wx/weakref.h>

#include "catalogue/Catalogue.h"
#include "editors/weekday/ZV_WDCForm.h"
#include "lang/TextNumbers.h"
#include "ui/InputBlock.h"
#include "ui/StatusChain.h"
#include "ui/WxText.h"

namespace zek {

ZV_WDC::ZV_WDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, WeekdayEditor& editor)
    : wxDialog(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      proc_(proc),
      turn_(turn),
      editor_(editor) {
  Build();
  ShowTypeCaptions();
  BindEvents();
  grid_->FocusStart(0);
}

void ZV_WDC::BindEvents() {
  for (std::size_t type = 0; type < Option_Type.size(); ++type) {
    Option_Type.at(type)->Bind(wxEVT_RADIOBUTTON, [this, type](wxCommandEvent&) {
      grid_->TakeEntry();
      editor_.ShowType(type);
      grid_->ShowCells();
    });
  }
  Command_Copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Change(&WeekdayEditor::Copy); });
  Command_Erase->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Change(&WeekdayEditor::Erase); });
  Command_Ok->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Save(); });
  Bind(wxEVT_CHAR_HOOK, &ZV_WDC::OnKey, this);
}

void ZV_WDC::Change(std::size_t (WeekdayEditor::*change)()) {
  grid_->TakeEntry();
  const std::size_t column = (editor_.*change)();
  grid_->ShowCells();
  ShowTypeCaptions();
  grid_->FocusStart(column);
}

void ZV_WDC::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (event.GetModifiers() == wxMOD_CONTROL && key == 'S') {
    Save();
  } else if (event.HasAnyModifiers() || !grid_->TakeKey(key)) {
    event.Skip();
  }
}

void ZV_WDC::Save() {
  if (busy_ || editor_.ViewOnly()) return;
  grid_->TakeEntry();
  const wxWeakRef<ZV_WDC> alive(this);
  const auto write = [&proc = proc_](const std::vector<std::string>& lines) {
    proc.transfer.CatalogueLines = lines;
    return SaveCatalogue(proc, Catalogue::Wdc);
  };
  bool saved = false;
  bool close = false;
  {
    // A catalogue that is sent half is worse than either whole one: a write can't be cancelled.
    const InputBlock block([] {});
    saved = editor_.Save(write, proc_.outside.prompts, proc_.texts);
    close = block.CloseRequested();
  }
  if (!alive) return;
  ShowStatus();
  if (saved || close || turn_.Quitting()) EndModal(wxID_CANCEL);
}

void ZV_WDC::ShowStatus() {
  const std::string& waiting = proc_.status.Waiting;
  const std::string both = proc_.status.Transfer + (waiting.empty() ? "" : "  " + waiting);
  status_->SetLabel(ToWx(both));
  if (busy_ != (proc_.status.Busy > 0)) ShowBusy(!busy_);
}

void ShowWeekdayForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn) {
  using Access = WeekdayEditor::Access;
  // The node of a whole object has no name: its editor owns none of the lines it would replace.
  const bool viewOnly = proc.settings.ViewOnly || proc.selection.TscName.empty();
  // The editor outlives its form, which may go with its parent in the middle of a save.
  WeekdayEditor editor(proc.transfer.CatalogueLines, proc.selection.TscName,
                       proc.settings.DecimalSeparator, viewOnly ? Access::ViewOnly : Access::Edit);
  const wxWeakRef<ZV_WDC> form(new ZV_WDC(parent, proc, turn, editor));
  const StatusChain chain(proc.status, [form] {
    if (form) form->ShowStatus();
  });
  form->CallAfter([form, &proc, refused = editor.Refused()] {
    form->Raise();
    if (refused) ShowRefused(*refused, proc.outside.prompts, proc.texts);
  });
  form->ShowModal();
  if (form) form->Destroy();
}

}  // namespace zek
