#include <wx/sizer.h>

#include "forecast/MomentText.h"
#include "forms/weekday/ZV_WDC.h"
#include "lang/TextNumbers.h"
#include "ui/WxText.h"

// The weekday editor's controls, captions and layout.
namespace zek {
namespace {

constexpr int kFrameWdc = text::kWeekdayCaption + 1;
constexpr int kFrameType = text::kWeekdayCaption + 6;
constexpr int kCopy = text::kWeekdayCaption + 7;
constexpr int kErase = text::kWeekdayCaption + 8;
constexpr int kOk = text::kWeekdayCaption + 9;
constexpr int kCancel = text::kWeekdayCaption + 10;
constexpr int kToolTips = text::kWeekdayCaption + 13;  // for copy, erase, save, cancel
constexpr int kGap = 8;

}  // namespace

void ZV_WDC::Build() {
  Mnemonics letters;
  BuildFrames(letters);
  BuildCommands(letters);
  for (std::size_t type = 0; type < Option_Type.size(); ++type)
    optionLetters_.at(type) = letters.Give(ToWx(editor_.TypeCaption(type, proc_.texts))).find('&');
  NewFindings(letters);
  ShowTypeCaptions();
  Arrange();
}

void ZV_WDC::BuildFrames(Mnemonics& letters) {
  Frame_WDC = new wxStaticBox(this, wxID_ANY, letters.Give(Caption(kFrameWdc)));
  Frame_WDC->SetName("Frame_WDC");
  const auto changed = [this] {
    picture_->ShowTable();
    ShowTypeCaptions();
    ShowChanges();
  };
  grid_ = new WeekdayGrid(Frame_WDC, editor_, PartsOfGrid(changed));
  BuildPicture(letters);
  Frame_Type = new wxStaticBox(this, wxID_ANY, Caption(kFrameType));
  Frame_Type->SetName("Frame_Type");
  for (std::size_t type = 0; type < Option_Type.size(); ++type) {
    Option_Type.at(type) = new wxRadioButton(Frame_Type, wxID_ANY, {}, wxDefaultPosition,
                                             wxDefaultSize, type == 0 ? wxRB_GROUP : 0);
    Option_Type.at(type)->SetName("Option_Type" + std::to_string(type));
    // The number in the caption grows.
    Option_Type.at(type)->SetLabel(Caption(text::kWeekdays + static_cast<int>(type)) + " (112)");
    Option_Type.at(type)->SetMinSize(Option_Type.at(type)->GetBestSize());
  }
  BlockWhileBusy(Frame_WDC);
  BlockWhileBusy(Frame_Type);
}

void ZV_WDC::BuildPicture(Mnemonics& letters) {
  const SceneWords words(proc_.texts, editor_.Names(), [this](float value) {
    return WithName(ValueText(value, proc_.settings.DecimalSeparator),
                    editor_.NamesOf(WeekdayBox::ValueOn));
  });
  picture_ = new WeekPicture(Frame_WDC, editor_, words,
                             {[this] { return grid_->TakeEntry(); }, [this] { grid_->ShowCells(); },
                              [this] { grid_->FocusStart(editor_.Column()); },
                              [this](bool stop, std::int16_t minute) { MoveEnd(stop, minute); },
                              [this](const std::string& said) {
                                Say(said);
                                ShowChanges();
                              }});
  Check_Picture = new wxCheckBox(Frame_WDC, wxID_ANY, letters.Give(Caption(text::kWeekPicture)));
  Check_Picture->SetName("Check_Picture");
  Check_Picture->SetValue(ReadYesNo(proc_.profile, "General", kPictureKey, "yes"));
  picture_->Show(Check_Picture->GetValue());
}

void ZV_WDC::BuildCommands(Mnemonics& letters) {
  const auto command = [&](int id, const char* name, int caption, bool changes) {
    return NewCommand(id, name, letters.Give(Caption(caption)),
                      Caption(caption - kCopy + kToolTips), changes);
  };
  Command_Copy = command(wxID_ANY, "Command_Copy", kCopy, true);
  Command_Erase = command(wxID_ANY, "Command_Erase", kErase, true);
  Command_CopyPaste =
      NewCommand(wxID_ANY, "Command_CopyPaste", letters.Give(Caption(text::kCopyPaste)), {}, false);
  undoAndRedo_ = NewUndoAndRedo(letters);
  Command_Ok = NewSave(letters.Give(Caption(kOk)), Caption(kOk - kCopy + kToolTips));
  Command_Cancel = command(wxID_CANCEL, "Command_Cancel", kCancel, false);
}

void ZV_WDC::Arrange() {
  const int gap = FromDIP(kGap);
  auto* const table = new wxStaticBoxSizer(Frame_WDC, wxVERTICAL);
  table->Add(grid_, 0, wxEXPAND | wxALL, gap);
  table->Add(picture_, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
  table->Add(Check_Picture, 0, wxALL, gap);
  auto* const types = new wxStaticBoxSizer(Frame_Type, wxHORIZONTAL);
  types->Add(Option_Type[0], 0, wxALL, gap);
  types->Add(Option_Type[1], 0, wxALL, gap);
  auto* const lower = new wxBoxSizer(wxHORIZONTAL);
  lower->Add(types, 0, wxRIGHT, 3 * gap);
  lower->Add(Command_Copy, 0, wxALIGN_BOTTOM | wxBOTTOM | wxRIGHT, gap);
  lower->Add(Command_Erase, 0, wxALIGN_BOTTOM | wxBOTTOM, gap);
  lower->AddStretchSpacer();
  lower->Add(FindingsButton(), 0, wxALIGN_BOTTOM | wxBOTTOM, gap);
  auto* const commands = new wxBoxSizer(wxHORIZONTAL);
  commands->Add(undoAndRedo_, 0, wxRIGHT, gap);
  commands->Add(Command_CopyPaste, 0, wxRIGHT, 3 * gap);
  commands->AddStretchSpacer();
  commands->Add(Command_Ok, 0, wxRIGHT, gap);
  commands->Add(Command_Cancel);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(table, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(lower, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(commands, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  FindingsButton()->MoveAfterInTabOrder(Command_Erase);
  Command_CopyPaste->MoveBeforeInTabOrder(Command_Ok);
  LayOut(whole);
}

wxString ZV_WDC::TypeCaption(std::size_t type) const {
  wxString caption = ToWx(editor_.TypeCaption(type, proc_.texts));
  const std::size_t letter = optionLetters_.at(type);
  return letter < caption.length() && !caption.Contains("&") ? caption.insert(letter, "&")
                                                             : caption;
}

void ZV_WDC::ShowTypeCaptions() {
  for (std::size_t type = 0; type < Option_Type.size(); ++type)
    Option_Type.at(type)->SetLabel(TypeCaption(type));
}

}  // namespace zek
