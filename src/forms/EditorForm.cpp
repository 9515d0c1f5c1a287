#include "forms/EditorForm.h"

#include <utility>

#include <wx/sizer.h>
#include <wx/weakref.h>

#include "forms/CancelTransfer.h"
#include "forms/EditorTitle.h"
#include "forms/FindingsForm.h"
#include "forms/StatusChain.h"
#include "forms/ZV_Applies.h"
#include "forms/ZV_Help.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/InputBlock.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 8;

bool IsCopy(int key, int modifiers) {
  return modifiers == wxMOD_CONTROL && (key == 'C' || key == WXK_INSERT);
}
bool IsPaste(int key, int modifiers) {
  return (modifiers == wxMOD_CONTROL && key == 'V') ||
         (modifiers == wxMOD_SHIFT && key == WXK_INSERT);
}
}  // namespace

EditorForm::EditorForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, Catalogue catalogue,
                       const CatalogueContent& content, const Kind& kind)
    : FormDialog(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, kind.name),
      proc_(proc),
      turn_(turn),
      id_(proc.selection.Id(catalogue)),
      content_(content),
      viewOnly_(kind.viewOnly),
      closesWhenGivenUp_(kind.closesWhenGivenUp),
      status_(new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END)),
      opened_(new OpenedNote(this, proc, id_, !viewOnly_)),
      sent_(new wxGauge(this, wxID_ANY, 1)),
      fromCopy_(content.from == LinesFrom::LocalCopy && !proc.settings.LocalMode) {
  title_ = ToWx(EditorTitle(proc, catalogue, kind.viewOnly));
  SetTitle(title_);
  status_->SetName("Label_Status");
  sent_->SetName("Gauge_Sent");
  SetAccessibleName(*sent_, title_);
  sent_->Hide();
  Bind(wxEVT_CHAR_HOOK, &EditorForm::OnKey, this);
  Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ShowChanges(); });
  // Escape presses this button.
  Bind(wxEVT_BUTTON, &EditorForm::OnCancel, this, wxID_CANCEL);
  Bind(wxEVT_CLOSE_WINDOW, &EditorForm::OnClose, this);
}

wxButton* EditorForm::NewCommand(wxWindowID id, const std::string& name, const wxString& caption,
                                 const wxString& toolTip, bool changes) {
  auto* const button = new wxButton(this, id, caption);
  button->SetName(name);
  if (!toolTip.empty()) button->SetToolTip(toolTip);
  BlockWhileBusy(button, !changes || !viewOnly_);
  return button;
}

wxButton* EditorForm::NewSave(const wxString& caption, const wxString& toolTip) {
  save_ = NewCommand(wxID_ANY, "Command_Ok", caption, toolTip, true);
  save_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Save(); });
  return save_;
}

wxSizer* EditorForm::NewUndoAndRedo(Mnemonics& letters) {
  const auto command = [&](const char* name, int caption, int hint) {
    return NewCommand(wxID_ANY, name, letters.Give(Caption(caption)), Caption(hint), true);
  };
  undo_ = command("Command_Undo", text::kUndo, text::kUndoHint);
  redo_ = command("Command_Redo", text::kRedo, text::kRedoHint);
  // A click on the button would move the focus out of the box first. The box would then record the
  // typed text as a step of its own, or reject it, and the click would undo the step before.
  undo_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    const bool typed = HasEntry();
    if (typed) StepBack();
    event.Skip(!typed);
  });
  undo_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StepBack(); });
  redo_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StepForward(); });
  auto* const both = new wxBoxSizer(wxHORIZONTAL);
  both->Add(undo_, 0, wxRIGHT, FromDIP(kGap));
  both->Add(redo_);
  // The node of a whole object has no weekdays of its own.
  if (proc_.selection.TscName.empty()) return both;
  wxButton* const applies =
      NewCommand(wxID_ANY, "Command_Applies",
                 letters.Give(wxControl::RemoveMnemonics(Caption(text::kApplies))),
                 Caption(text::kAppliesHint) + " (F9)", false);
  applies->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { WhatApplies(); });
  both->Add(applies, 0, wxLEFT, FromDIP(kGap));
  return both;
}

void EditorForm::NewFindings(Mnemonics& letters) {
  count_ = letters.Give(Caption(text::kFindingsCount));
  list_ =
      NewCommand(wxID_ANY, "Command_Findings", count_, Caption(text::kFindingsCountHint), false);
  list_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ListFindings(); });
  ShowCount();
  SetExtraStyle(GetExtraStyle() | wxWS_EX_PROCESS_IDLE);  // the program sends it to no others
  Bind(wxEVT_IDLE, &EditorForm::OnIdle, this);
}

void EditorForm::BlockWhileBusy(wxWindow* part, bool usable) {
  part->Enable(usable);
  parts_.push_back({part, usable});
}

void EditorForm::LayOut(wxSizer* content) {
  const int gap = FromDIP(kGap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, 1, wxEXPAND);
  auto* const foot = new wxBoxSizer(wxHORIZONTAL);
  foot->Add(status_, 1, wxALIGN_CENTER_VERTICAL);
  foot->Add(opened_, 0, wxALIGN_CENTER_VERTICAL | wxLEFT, gap);
  foot->Add(sent_, 0, wxALIGN_CENTER_VERTICAL | wxLEFT, gap);
  whole->Add(foot, 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(whole);
  SetIcons(ProgramIcons());
  RememberPlacement(*this, GetName().ToStdString());
  if (proc_.settings.AlwaysOnTop) SetTopmost(*this, true);
}

wxString EditorForm::Caption(int number) const { return ToWx(proc_.Text(number)); }

void EditorForm::Say(const std::string& said) {
  said_ = said;
  ShowStatus();
}

EntryGrid::Parts EditorForm::PartsOfGrid(std::function<void()> changed) {
  return {proc_.texts, proc_.prompts, std::move(changed),
          [this](const std::string& said) { Say(said); }};
}

void EditorForm::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const int modifiers = event.GetModifiers();
  const bool control = modifiers == wxMOD_CONTROL;
  if (control && key == 'S') {
    Save();
  } else if (control && key == 'Z') {  // not the box's own undo, which covers only its text
    StepBack();
  } else if ((control && key == 'Y') ||
             (modifiers == (wxMOD_CONTROL | wxMOD_SHIFT) && key == 'Z')) {
    StepForward();
  } else if (key == WXK_F1) {
    ShowHelp(this, proc_, HelpPageOf(id_.catalogue));
  } else if (key == WXK_F9 && modifiers == wxMOD_NONE) {
    WhatApplies();
  } else if (!busy_ &&
             ((IsCopy(key, modifiers) && TakeCopy()) || (IsPaste(key, modifiers) && TakePaste()))) {
    return;
  } else if (event.HasAnyModifiers() || !TakeKey(key)) {
    event.Skip();
  }
}

void EditorForm::Save() {
  if (busy_ || viewOnly_ || proc_.status.Busy > 0) return;
  if (!TakeEntry()) return;
  ShowChanges();
  if (!CanSave()) return;
  Say({});
  const wxWeakRef<EditorForm> alive(this);
  SaveOutcome outcome = SaveOutcome::NotTried;
  bool close = false;
  {
    const InputBlock block(
        [alive] {
          if (alive) alive->CancelLater();
        },
        FindWindow(wxID_CANCEL));
    outcome = SaveEdited();
    close = block.CloseRequested();
  }
  if (!alive) return;
  said_.clear();  // the outcome shows instead
  ShowStatus();
  const bool givenUp = outcome == SaveOutcome::GivenUp || outcome == SaveOutcome::Refused;
  const bool closes =
      outcome == SaveOutcome::Written || (outcome == SaveOutcome::GivenUp && closesWhenGivenUp_);
  if (ended_ || closes) {
    End();
    return;
  }
  givenUp_ = givenUp_ || givenUp;
  ShowChanges();
  if (close || turn_.Quitting()) CloseOrStay();
}

// The form may have been destroyed when a write ends, so use only the session from there on.
SaveOutcome EditorForm::SaveEdited() {
  ZV_Proc& proc = proc_;
  const std::optional<EditedCatalogue> edited = Edited();
  if (!edited) return SaveOutcome::NotTried;
  Findings().Search(Edits(), OwnFindings());
  std::vector<std::string> findings = Findings().NewOnes();
  const auto write = [&proc, &edited, id = id_, dfv = content_.dfv,
                      findings = std::move(findings)](const std::vector<std::string>& lines) {
    CatalogueDraft draft{lines, dfv, edited->notInLines};
    draft.notes = edited->notes;
    draft.findings = findings;
    return proc.catalogues.SaveCatalogue(id, draft);
  };
  return SaveWithRetry(*edited, write, proc.ToUser());
}

// --- Findings ---

// Read late, so that the form opens at once.
OpenedFindings& EditorForm::Findings() {
  if (!findings_) findings_.emplace(proc_, id_.catalogue, content_);
  return *findings_;
}

// What takes long is proved while the user does nothing.
void EditorForm::OnIdle(wxIdleEvent& event) {
  event.Skip();
  if (ended_ && !busy_ && !asking_) return End();  // what was above may have gone
  if (busy_ || !IsShown()) return;
  Findings().Search(Edits(), OwnFindings());
  if (Findings().Step()) event.RequestMore();
  ShowCount();
}

void EditorForm::ShowCount() {
  const bool known = findings_ && findings_->Complete();
  wxString caption = count_;
  caption.Replace("%1", known ? wxString(std::to_string(findings_->Count())) : wxString("..."));
  if (list_->GetLabel() == caption) return;
  list_->SetLabel(caption);
  if (list_->GetSize().x < list_->GetBestSize().x) Layout();
}

void EditorForm::ListFindings() {
  if (busy_ || !TakeEntry()) return;
  ShowChanges();
  OpenedFindings& findings = Findings();
  findings.Search(Edits(), OwnFindings());
  const FindingSource source{[&findings] { return findings.Step(); },
                             [&findings](std::size_t from) {
                               std::vector<FindingRow> rows;
                               for (ShownFinding& shown : findings.Shown(from))
                                 rows.push_back({{}, std::move(shown)});
                               return rows;
                             },
                             [&findings] { return findings.Missing(); },
                             {}};
  const wxWeakRef<EditorForm> alive(this);
  const auto chosen = ShowFindings(this, proc_, proc_.Text(text::kFindingsTitle), source);
  if (!alive || !AfterBox()) return;
  const auto shown = chosen ? findings.Shown(*chosen) : std::vector<ShownFinding>();
  if (!shown.empty()) GoTo(shown.front().leads);
}

// The other catalogues may have to be fetched, which blocks the form like a write.
void EditorForm::WhatApplies() {
  if (busy_ || proc_.status.Busy > 0 || proc_.selection.TscName.empty() || !TakeEntry()) return;
  ShowChanges();
  const wxWeakRef<EditorForm> alive(this);
  ControlCatalogues catalogues(proc_);
  catalogues.Use(id_.catalogue, content_);
  bool read = false;
  bool close = false;
  {
    const InputBlock block(
        [alive] {
          if (alive) alive->CancelLater();
        },
        FindWindow(wxID_CANCEL));
    read = catalogues.Read();
    close = block.CloseRequested();
  }
  if (!alive) return;
  ShowStatus();
  if (ended_) {
    End();
  } else if (close || turn_.Quitting()) {
    CloseOrStay();
  } else if (read) {
    ShowWhatApplies(catalogues);
  }
}

void EditorForm::ShowWhatApplies(const ControlCatalogues& catalogues) {
  const wxWeakRef<EditorForm> alive(this);
  Schedule schedule = catalogues.Together();
  PutEdited(schedule);
  const bool edited = givenUp_ || State().changed;
  ShowApplies(this, proc_,
              AppliesOf(proc_, catalogues, std::move(schedule),
                        edited ? std::optional(id_.catalogue) : std::nullopt));
  if (!alive) return;
  findings_.reset();  // another rule may have been chosen
  AfterBox();
}

// --- Undo, redo and what is not saved ---

// The first step discards text that is typed but not entered; the next ones undo changes.
void EditorForm::StepBack() {
  if (busy_ || viewOnly_) return;
  if (HasEntry()) {
    DropEntry();
  } else if (State().canUndo) {
    Undo();
    Say(Message(proc_.Text(text::kUndone), {PlaceName()}));
  }
  ShowChanges();
}

void EditorForm::StepForward() {
  if (busy_ || viewOnly_ || HasEntry() || !State().canRedo) return;
  Redo();
  Say(Message(proc_.Text(text::kRedone), {PlaceName()}));
  ShowChanges();
}

bool EditorForm::IsUnsaved() const { return givenUp_ || HasEntry() || State().changed; }

bool EditorForm::CanSave() const { return !viewOnly_ && (fromCopy_ || IsUnsaved()); }

void EditorForm::ShowChanges() {
  const bool entry = HasEntry();
  const EditState state = State();
  const wxString title = (IsUnsaved() ? "*" : "") + title_;
  if (GetTitle() != title) SetTitle(title);
  Allow(save_, CanSave());
  Allow(undo_, !viewOnly_ && (entry || state.canUndo));
  Allow(redo_, !viewOnly_ && !entry && state.canRedo);
}

void EditorForm::OnCancel(wxCommandEvent& /*event*/) {
  if (busy_) {
    CancelLater();
  } else {
    CloseOrStay();
  }
}

// The question must not run inside the handler of a key.
void EditorForm::CancelLater() {
  CallAfter([&proc = proc_] { CancelTransfer(proc); });
}

void EditorForm::OnClose(wxCloseEvent& event) {
  if (!event.CanVeto()) {
    End();  // the user's session ends
    return;
  }
  event.Veto();  // `CloseOrStay` decides whether the dialog ends
  CloseOrStay();
}

void EditorForm::CloseOrStay() {
  if (asking_) return;
  const wxWeakRef<EditorForm> alive(this);
  DropEntry();  // it was not entered
  ShowChanges();
  if (IsUnsaved() && !viewOnly_ && !turn_.Quitting()) {
    asking_ = true;
    const bool close = proc_.prompts.AskYesNo(
        Icon::Exclamation,
        proc_.Text(State().changed && !givenUp_ ? text::kAskClose : text::kAskCloseUnsent),
        proc_.Text(text::kAskCloseTitle));
    if (!alive) return;
    asking_ = false;
    if (!close && !ended_) return;
  }
  End();
}

bool EditorForm::AfterBox() {
  if (ended_) return false;
  Raise();
  FocusEntry();
  return true;
}

void EditorForm::End() {
  // The event loop of a box above would swallow the end of this one.
  ended_ = HasOpenBox(*this);
  if (IsModal() && !ended_) EndModal(wxID_CANCEL);
}

bool EditorForm::Destroy() {
  opened_->End();
  return FormDialog::Destroy();
}

void EditorForm::ShowStatus() {
  const std::string& waiting = proc_.status.Waiting;
  const std::string both = proc_.status.Transfer + (waiting.empty() ? "" : "  " + waiting);
  const std::string& atRest = said_.empty() ? proc_.status.Outcome : said_;
  status_->SetLabel(ToWx(both.empty() ? atRest : both));
  ShowSent();
  if (busy_ != (proc_.status.Busy > 0)) ShowBusy(!busy_);
  if (busy_) OfferCancel();
}

void EditorForm::ShowSent() {
  const SendingSteps& sending = proc_.status.Sending;
  if (sent_->Show(sending.of > 0)) Layout();
  if (sending.of == 0) return;
  sent_->SetRange(static_cast<int>(sending.of));
  sent_->SetValue(static_cast<int>(sending.done));
}

// Cancel is the only usable button during a transfer. It gets the focus, so that keys arrive.
void EditorForm::OfferCancel() {
  wxWindow* const cancel = FindWindow(wxID_CANCEL);
  const bool offered = proc_.waits.CanCancel();
  if (cancel == nullptr || cancel->IsEnabled() == offered) return;
  cancel->Enable(offered);
  if (offered) cancel->SetFocus();
}

void EditorForm::Allow(wxWindow* part, bool usable) {
  for (Part& each : parts_) {
    if (each.window != part) continue;
    each.usable = usable;
    if (part->IsThisEnabled() != (usable && !busy_)) part->Enable(usable && !busy_);
  }
}

void EditorForm::ShowBusy(bool busy) {
  busy_ = busy;
  for (const Part& part : parts_) part.window->Enable(!busy && part.usable);
  SetCursor(busy ? wxCursor(wxCURSOR_WAIT) : wxNullCursor);
  if (!busy) FocusEntry();
}

void ShowEditorForm(EditorForm* form, ZV_Proc& proc, const std::optional<EntryPlace>& at,
                    std::function<void()> opened) {
  const wxWeakRef<EditorForm> alive(form);
  const StatusChain chain(proc.status, [alive] {
    if (alive) alive->ShowStatus();
  });
  form->CallAfter([alive, at, opened = std::move(opened)] {
    alive->Raise();
    opened();
    if (alive) alive->FocusEntry();
    if (alive && at) alive->GoTo(*at);
  });
  form->ShowModal();
  if (alive) form->Destroy();
}

}  // namespace zek
