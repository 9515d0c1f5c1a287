#include "forms/exception/ZV_OVC.h"

#include <wx/sizer.h>

#include "forecast/MomentText.h"
#include "forms/EditorOpening.h"
#include "lang/TextNumbers.h"
#include "paste/ExceptionBlock.h"
#include "ui/Forms.h"

namespace zek {
namespace {

constexpr int kErase = text::kExceptionCaption + 5;
constexpr int kOk = text::kExceptionCaption + 6;
constexpr int kCancel = text::kExceptionCaption + 7;
constexpr int kOkToolTip = text::kExceptionCaption + 8;
constexpr int kGap = 8;

}  // namespace

ZV_OVC::ZV_OVC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
               ExceptionEditor& editor)
    : EditorForm(parent, proc, turn, Catalogue::Ovc, content, {"ZV_OVC", editor.ViewOnly(), true}),
      editor_(editor) {
  Build();
  Arrange();
  Command_Erase->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Erase(); });
  IgnoreSecondClick(*Command_Erase);
  clipboard_.emplace(ClipboardParts());
  Command_CopyPaste->Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { clipboard_->ShowMenu(*Command_CopyPaste, {}); });
  grid_->Focus({});
  ShowChanges();
}

void ZV_OVC::Build() {
  Mnemonics letters;
  Frame_OVC = new wxStaticBox(this, wxID_ANY, letters.Give(Caption(text::kExceptionFrame)));
  Frame_OVC->SetName("Frame_OVC");
  BlockWhileBusy(Frame_OVC);
  grid_ = new OvcGrid(Frame_OVC, editor_, PartsOfGrid([this] { ShowChanges(); }));
  Command_Erase = NewCommand(wxID_ANY, "Command_Erase", letters.Give(Caption(kErase)),
                             Caption(text::kEraseHint), true);
  Command_CopyPaste =
      NewCommand(wxID_ANY, "Command_CopyPaste", letters.Give(Caption(text::kCopyPaste)), {}, false);
  undoAndRedo_ = NewUndoAndRedo(letters);
  Command_Ok = NewSave(letters.Give(Caption(kOk)), Caption(kOkToolTip));
  Command_Cancel =
      NewCommand(wxID_CANCEL, "Command_Cancel", letters.Give(Caption(kCancel)), {}, false);
  NewFindings(letters);
}

void ZV_OVC::Arrange() {
  const int gap = FromDIP(kGap);
  auto* const table = new wxStaticBoxSizer(Frame_OVC, wxVERTICAL);
  table->Add(grid_, 1, wxEXPAND | wxALL, gap);
  auto* const lower = new wxBoxSizer(wxHORIZONTAL);
  lower->Add(Command_Erase, 0, wxRIGHT, gap);
  lower->Add(Command_CopyPaste);
  lower->AddStretchSpacer();
  lower->Add(FindingsButton());
  auto* const commands = new wxBoxSizer(wxHORIZONTAL);
  commands->Add(undoAndRedo_, 0, wxRIGHT, 3 * gap);
  commands->AddStretchSpacer();
  commands->Add(Command_Ok, 0, wxRIGHT, gap);
  commands->Add(Command_Cancel);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(table, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(lower, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(commands, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  FindingsButton()->MoveAfterInTabOrder(Command_CopyPaste);
  LayOut(whole);
}

void ZV_OVC::Erase() {
  if (!grid_->TakeEntry()) return;
  const std::size_t next = editor_.Erase();
  grid_->ShowRows();
  grid_->Focus({ExceptionBox::DateOn, next});
  ShowChanges();
}

BoxClipboard::Parts ZV_OVC::ClipboardParts() {
  const auto at = [](std::size_t box) {
    return ExceptionBoxAt{OvcGrid::At(box).box, OvcGrid::At(box).row};
  };
  return {*grid_,
          proc_.ToUser(),
          editor_.ViewOnly(),
          [this, at](const EntryGrid::Block& block) {
            return WriteBlock(
                CopyBoxes(editor_.Table(), at(block.first), at(block.last), editor_.Rules()));
          },
          [this](const std::string& text) { Paste(text); },
          [this] { FocusEntry(); },
          [this](const std::string& said) { Say(said); }};
}

void ZV_OVC::Paste(const std::string& text) {
  const CellBlock block = ReadBlock(text);
  const ExceptionFocus at = OvcGrid::At(grid_->PasteAt());
  const auto pasted = PasteBoxes(editor_.Table(), {at.box, at.row}, block, editor_.Rules());
  if (const auto* refused = std::get_if<PasteRefusal>(&pasted))
    return proc_.prompts.Show(Icon::Exclamation, refused->MessageIn(proc_.texts));
  editor_.Replace(std::get<ExceptionTable>(pasted));
  grid_->ShowRows();
  ShowChanges();
  Say(PastedMessage(block, proc_.texts));
}

void ZV_OVC::ShowAt(const std::optional<ExceptionFocus>& changed) {
  if (!changed) return;
  grid_->ShowRows();
  grid_->Focus(*changed);
}

// "Rad 3".
std::string ZV_OVC::PlaceName() const {
  return proc_.Text(text::kRowHeading) + " " + std::to_string(editor_.Row() + 1);
}

void ZV_OVC::GoTo(const EntryPlace& place) {
  if (place.exception) return grid_->Focus({ExceptionBox::DateOn, *place.exception});
  FocusEntry();
}

void ShowExceptionForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                       const CatalogueContent& content, const std::optional<EntryPlace>& at) {
  const char separator = proc.settings.DecimalSeparator;
  const PickList pickList = ReadPickList(proc.profile, proc.selection.PickListTable, separator);
  // Outlives the form, which may be destroyed with its parent during a save.
  ExceptionEditor editor(content.lines, proc.selection.Id(Catalogue::Ovc).Owner(), separator,
                         pickList, proc.settings.ViewOnly ? Access::ViewOnly : Access::Edit,
                         [&proc] { return MomentOf(proc.now()); });
  editor.CountLost(content.linesDropped);
  ShowEditorForm(new ZV_OVC(parent, proc, turn, content, editor), proc, at,
                 [&] { TellOpened(proc, content, pickList, editor.Refused()); });
}

}  // namespace zek
