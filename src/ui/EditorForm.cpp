#include "ui/EditorForm.h"

#include <utility>

#include <wx/sizer.h>
#include <wx/weakref.h>

#include "ui/Forms.h"
#include "ui/InputBlock.h"
#include "ui/Pictures.h"
#include "ui/StatusChain.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 8;

void CancelVerification(ZV_Proc& proc) {
  if (proc.transfer.Verifying) proc.waits.CancelRequested = true;
}
}  // namespace

EditorForm::EditorForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, Catalogue catalogue,
                       const Kind& kind)
    : wxDialog(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, kind.name),
      proc_(proc),
      turn_(turn),
      catalogue_(catalogue),
      viewOnly_(kind.viewOnly),
      closesWhenGivenUp_(kind.closesWhenGivenUp),
      status_(new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END)) {
  const std::string& tsc = proc.selection.TscName;
  const std::string& object = proc.topics[proc.selection.CurrentObject].TopicName;
  SetTitle(Caption(kind.titleText) + " - " + ToWx(tsc.empty() ? object : tsc));
  status_->SetName("Label_Status");
  Bind(wxEVT_CHAR_HOOK, &EditorForm::OnKey, this);
  Bind(
      wxEVT_BUTTON,
      [this](wxCommandEvent& event) {
        if (busy_) {
          CancelVerification(proc_);
        } else {
          event.Skip();
        }
      },
      wxID_CANCEL);
}

wxButton* EditorForm::NewCommand(wxWindowID id, const std::string& name, const wxString& caption,
                                 const wxString& toolTip, bool changes) {
  auto* const button = new wxButton(this, id, caption);
  button->SetName(name);
  if (!toolTip.empty()) button->SetToolTip(toolTip);
  BlockWhileBusy(button, !changes || !viewOnly_);
  return button;
}

void EditorForm::BlockWhileBusy(wxWindow* part, bool usable) {
  part->Enable(usable);
  parts_.push_back({part, usable});
}

void EditorForm::LayOut(wxSizer* content) {
  const int gap = FromDIP(kGap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, 1, wxEXPAND);
  whole->Add(status_, 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(whole);
  SetIcons(ProgramIcons());
  RememberPlacement(*this, GetName().ToStdString());
  if (proc_.settings.AlwaysOnTop) SetTopmost(*this, true);
}

wxString EditorForm::Caption(int number) const { return ToWx(proc_.Text(number)); }

void EditorForm::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (event.GetModifiers() == wxMOD_CONTROL && key == 'S') {
    Save();
  } else if (event.HasAnyModifiers() || !TakeKey(key)) {
    event.Skip();
  }
}

void EditorForm::Save() {
  if (busy_ || viewOnly_) return;
  TakeEntry();
  const wxWeakRef<EditorForm> alive(this);
  const auto write = [&proc = proc_,
                      catalogue = catalogue_](const std::vector<std::string>& lines) {
    proc.transfer.CatalogueLines = lines;
    return SaveCatalogue(proc, catalogue);
  };
  SaveOutcome outcome = SaveOutcome::NotTried;
  bool close = false;
  {
    // A catalogue that is sent half is worse than either whole one: a write can't be cancelled,
    // only what is done when it has been sent.
    const InputBlock block([&proc = proc_] { CancelVerification(proc); }, FindWindow(wxID_CANCEL));
    outcome = SaveTable(write);
    close = block.CloseRequested();
  }
  if (!alive) return;
  ShowStatus();
  const bool done =
      outcome == SaveOutcome::Written || (outcome == SaveOutcome::GivenUp && closesWhenGivenUp_);
  if (done || close || turn_.Quitting()) EndModal(wxID_CANCEL);
}

void EditorForm::ShowStatus() {
  const std::string& waiting = proc_.status.Waiting;
  const std::string both = proc_.status.Transfer + (waiting.empty() ? "" : "  " + waiting);
  status_->SetLabel(ToWx(both));
  if (busy_ != (proc_.status.Busy > 0)) ShowBusy(!busy_);
  if (busy_) OfferCancel();
}

// The only button that works then; without a window that has the focus no key would arrive.
void EditorForm::OfferCancel() {
  wxWindow* const cancel = FindWindow(wxID_CANCEL);
  const bool offered = proc_.transfer.Verifying;
  if (cancel == nullptr || cancel->IsEnabled() == offered) return;
  cancel->Enable(offered);
  if (offered) cancel->SetFocus();
}

void EditorForm::ShowBusy(bool busy) {
  busy_ = busy;
  for (const Part& part : parts_) part.window->Enable(!busy && part.usable);
  SetCursor(busy ? wxCursor(wxCURSOR_WAIT) : wxNullCursor);
  if (!busy) FocusEntry();
}

void ShowEditorForm(EditorForm* form, ZV_Proc& proc, std::function<void()> opened) {
  const wxWeakRef<EditorForm> alive(form);
  const StatusChain chain(proc.status, [alive] {
    if (alive) alive->ShowStatus();
  });
  form->CallAfter([alive, opened = std::move(opened)] {
    alive->Raise();
    opened();
    if (alive) alive->FocusEntry();
  });
  form->ShowModal();
  if (alive) form->Destroy();
}

}  // namespace zek
