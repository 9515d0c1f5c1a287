#include <wx/sizer.h>

#include "editors/weekday/ZV_WDCForm.h"
#include "lang/TextNumbers.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

// The weekday editor's controls, their captions and how they look while a catalogue is written.
namespace zek {
namespace {

constexpr int kTitle = 0;  // of the captions that begin at text::kWeekdayCaption
constexpr int kFrameWdc = 1;
constexpr int kFrameType = 6;
constexpr int kCopy = 7;
constexpr int kErase = 8;
constexpr int kOk = 9;
constexpr int kCancel = 10;
constexpr int kToolTips = 13;  // of copy, erase, save, cancel
constexpr int kGap = 8;

}  // namespace

wxString ZV_WDC::Caption(int number) const {
  return ToWx(proc_.Text(text::kWeekdayCaption + number));
}

void ZV_WDC::Build() {
  const std::string& tsc = proc_.selection.TscName;
  const std::string& object = proc_.topics[proc_.selection.CurrentObject].TopicName;
  SetTitle(Caption(kTitle) + " - " + ToWx(tsc.empty() ? object : tsc));
  Mnemonics letters;
  BuildFrames(letters);
  BuildCommands(letters);
  for (std::size_t type = 0; type < Option_Type.size(); ++type)
    optionLetters_.at(type) = letters.Give(ToWx(editor_.TypeCaption(type, proc_.texts))).find('&');
  ShowTypeCaptions();
  LayOut();
}

void ZV_WDC::BuildFrames(Mnemonics& letters) {
  Frame_WDC = new wxStaticBox(this, wxID_ANY, letters.Give(Caption(kFrameWdc)));
  Frame_WDC->SetName("Frame_WDC");
  grid_ = new WeekdayGrid(Frame_WDC, editor_, proc_.texts, [this] { ShowTypeCaptions(); });
  Frame_Type = new wxStaticBox(this, wxID_ANY, Caption(kFrameType));
  Frame_Type->SetName("Frame_Type");
  for (std::size_t type = 0; type < Option_Type.size(); ++type) {
    Option_Type.at(type) = new wxRadioButton(Frame_Type, wxID_ANY, {}, wxDefaultPosition,
                                             wxDefaultSize, type == 0 ? wxRB_GROUP : 0);
    Option_Type.at(type)->SetName("Option_Type" + std::to_string(type));
  }
}

void ZV_WDC::BuildCommands(Mnemonics& letters) {
  const auto command = [&](int id, const char* name, int caption) {
    auto* const button = new wxButton(this, id, letters.Give(Caption(caption)));
    button->SetName(name);
    button->SetToolTip(Caption(caption - kCopy + kToolTips));
    return button;
  };
  Command_Copy = command(wxID_ANY, "Command_Copy", kCopy);
  Command_Erase = command(wxID_ANY, "Command_Erase", kErase);
  Command_Ok = command(wxID_ANY, "Command_Ok", kOk);
  Command_Cancel = command(wxID_CANCEL, "Command_Cancel", kCancel);
  for (wxButton* const button : {Command_Copy, Command_Erase, Command_Ok})
    button->Enable(!editor_.ViewOnly());
  status_ = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                             wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  status_->SetName("Label_Status");
}

void ZV_WDC::LayOut() {
  const int gap = FromDIP(kGap);
  auto* const table = new wxStaticBoxSizer(Frame_WDC, wxVERTICAL);
  table->Add(grid_, 1, wxEXPAND | wxALL, gap);
  auto* const types = new wxStaticBoxSizer(Frame_Type, wxHORIZONTAL);
  types->Add(Option_Type[0], 0, wxALL, gap);
  types->Add(Option_Type[1], 0, wxALL, gap);
  auto* const commands = new wxBoxSizer(wxHORIZONTAL);
  commands->Add(Command_Copy, 0, wxRIGHT, gap);
  commands->Add(Command_Erase, 0, wxRIGHT, 3 * gap);
  commands->AddStretchSpacer();
  commands->Add(Command_Ok, 0, wxRIGHT, gap);
  commands->Add(Command_Cancel);
  auto* const lower = new wxBoxSizer(wxHORIZONTAL);
  lower->Add(types, 0, wxRIGHT, 3 * gap);
  lower->Add(commands, 1, wxALIGN_BOTTOM | wxBOTTOM, gap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(table, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(lower, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
  whole->Add(status_, 0, wxEXPAND | wxALL, gap);
  SetSizerAndFit(whole);
  RememberPlacement(*this, "ZV_WDC");
  if (proc_.settings.AlwaysOnTop) SetTopmost(*this, true);
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

void ZV_WDC::ShowBusy(bool busy) {
  busy_ = busy;
  for (wxWindow* const part :
       {static_cast<wxWindow*>(Frame_WDC), static_cast<wxWindow*>(Frame_Type),
        static_cast<wxWindow*>(Command_Cancel)}) {
    part->Enable(!busy);
  }
  for (wxButton* const button : {Command_Copy, Command_Erase, Command_Ok})
    button->Enable(!busy && !editor_.ViewOnly());
  SetCursor(busy ? wxCursor(wxCURSOR_WAIT) : wxNullCursor);
  if (!busy) grid_->FocusStart(editor_.Column());
}

}  // namespace zek
