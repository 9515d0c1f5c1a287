#include "forms/weekday/ZV_WDC.h"

#include "formats/WeekdayCells.h"
#include "forms/EditorOpening.h"
#include "lang/TextNumbers.h"
#include "ui/Forms.h"

namespace zek {

ZV_WDC::ZV_WDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
               WeekdayEditor& editor)
    : EditorForm(parent, proc, turn, Catalogue::Wdc, content, {"ZV_WDC", editor.ViewOnly()}),
      editor_(editor) {
  Build();
  clipboard_.emplace(ClipboardParts());
  BindEvents();
  grid_->FocusStart(0);
  ShowChanges();
}

void ZV_WDC::BindEvents() {
  for (std::size_t type = 0; type < Option_Type.size(); ++type) {
    Option_Type.at(type)->Bind(wxEVT_RADIOBUTTON, [this, type](wxCommandEvent&) {
      if (TakeEntry()) editor_.ShowType(type);
      Option_Type.at(editor_.Type())->SetValue(true);
      grid_->ShowCells();
    });
  }
  grid_->shown = [this] { picture_->ShowTable(); };
  // As with typed text: another control enters it, the cancel button does not.
  Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
    if (event.GetWindow() != picture_ && event.GetWindow()->GetId() != wxID_CANCEL)
      picture_->FinishMove();
    event.Skip();
  });
  Check_Picture->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent& event) {
    ShowPicture(event.IsChecked());
    if (proc_.settings.ViewOnly) return;
    const char* const shown = event.IsChecked() ? "yes" : "no";
    if (const auto error = proc_.profile.WriteIni("General", kPictureKey, shown))
      proc_.ToUser().Tell(*error);
  });
  Command_Copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Change(&WeekdayEditor::Copy); });
  Command_Erase->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Change(&WeekdayEditor::Erase); });
  IgnoreSecondClick(*Command_Erase);
  Command_CopyPaste->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ShowCopyMenu(); });
}

void ZV_WDC::Change(std::size_t (WeekdayEditor::*change)()) {
  if (!TakeEntry()) return;
  const std::size_t column = (editor_.*change)();
  grid_->ShowCells();
  ShowTypeCaptions();
  grid_->FocusStart(column);
  ShowChanges();
}

bool ZV_WDC::TakeEntry() {
  picture_->FinishMove();
  return grid_->TakeEntry();
}

void ZV_WDC::DropEntry() {
  picture_->GiveUp();
  grid_->DropEntry();
}

bool ZV_WDC::HasEntry() const { return grid_->HasEntry() || picture_->IsMoving(); }

bool ZV_WDC::TakePaste() {
  picture_->FinishMove();
  return clipboard_->Paste();
}

void ZV_WDC::MoveEnd(bool stop, std::int16_t minute) {
  const WeekdayBox box = stop ? WeekdayBox::Stop : WeekdayBox::Start;
  editor_.Enter({box, editor_.Column()}, TimeText(minute));
  grid_->ShowCells();
  ShowTypeCaptions();
  ShowChanges();
}

void ZV_WDC::ShowPicture(bool on) {
  const wxSize before = GetSizer()->ComputeFittingWindowSize(this);
  picture_->Show(on);
  SetMinSize(wxDefaultSize);
  const wxSize fit = GetSizer()->ComputeFittingWindowSize(this);
  SetMinSize(fit);
  wxSize size = GetSize() + fit - before;
  size.IncTo(fit);
  if (!IsMaximized()) SetSize(size);
  Layout();
}

void ZV_WDC::ShowAt(const std::optional<WeekdayFocus>& changed) {
  if (!changed) return;
  Option_Type.at(editor_.Type())->SetValue(true);
  ShowTypeCaptions();
  grid_->ShowCells();
  grid_->Focus(*changed);
}

std::optional<EditedCatalogue> ZV_WDC::Edited() {
  auto edited = editor_.Edited();
  if (edited) edited->notes = editor_.Notes(proc_.texts);
  return edited;
}

void ZV_WDC::GoTo(const EntryPlace& place) {
  if (!place.cell) return FocusEntry();
  ShowAt(editor_.ShowCell(*place.cell));
}

std::vector<Finding> ZV_WDC::OwnFindings() const {
  std::vector<Finding> findings;
  for (const WeekdayCell& cell : editor_.NotEntered()) {
    findings.push_back(
        {FindingKind::StartNotEntered, "wdc " + std::to_string(NumberOfCell(cell)), {}});
  }
  return findings;
}

void ShowWeekdayForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
                     const std::optional<EntryPlace>& at) {
  // An object's own node has no control name, so none of the catalogue's lines belong to it.
  const bool viewOnly = proc.settings.ViewOnly || proc.selection.TscName.empty();
  const PickList pickList =
      ReadPickList(proc.profile, proc.selection.PickListTable, proc.settings.DecimalSeparator);
  // Outlives the form, which may be destroyed with its parent during a save.
  WeekdayEditor editor(content.lines, proc.selection.Id(Catalogue::Wdc).Owner(),
                       proc.settings.DecimalSeparator, pickList,
                       viewOnly ? Access::ViewOnly : Access::Edit);
  editor.CountLost(content.linesDropped);
  editor.NameSpecialDays(ReadSpecialDayNames(proc.profile, proc.selection.TopicName));
  ShowEditorForm(new ZV_WDC(parent, proc, turn, content, editor), proc, at,
                 [&] { TellOpened(proc, content, pickList, editor.Refused()); });
}

}  // namespace zek
