#include <algorithm>
#include <array>
#include <vector>

#include <wx/accel.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/toolbar.h>

#include "forms/ModeStrip.h"
#include "forms/main/ZV_Main.h"
#include "lang/TextNumbers.h"
#include "ui/Mnemonics.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {

using namespace main_menu;

namespace {

constexpr int kWidth = 760;
constexpr int kHeight = 520;
constexpr int kSmallestWidth = 420;
constexpr int kSmallestHeight = 260;
constexpr int kGap = 6;
constexpr int kSequenceWidth = 60;

}  // namespace

wxString ZV_Main::Label(std::int32_t number, const char* key) const {
  return ToWx(proc_.Text(number)) + (*key == 0 ? "" : wxString("\t") + key);
}

void ZV_Main::BuildMenus() {
  menuDebug_ = new wxMenu;  // the menu bar deletes all of them
  menuDebug_->Append(Menu_Debug_Save, Label(text::kMenuDebugSave, "Ctrl+S"));
  menuDebug_->Append(Menu_Debug_Open, Label(text::kMenuDebugOpen, "Ctrl+O"));
  menuDebug_->AppendSeparator();
  menuDebug_->Append(Menu_Debug_Clear, Label(text::kMenuDebugClear, "Ctrl+L"));
  menuDebug_->AppendSeparator();
  menuDebug_->Append(Menu_Log_Find, Label(text::kLogFind, "Ctrl+F"));
  menuDebug_->Append(Menu_Log_Next, Label(text::kLogFindNext, "F3"));
  menuDebug_->Append(Menu_Log_Previous, Label(text::kLogFindPrevious, "Shift+F3"));
  menuDebug_->AppendSeparator();
  menuDebug_->AppendCheckItem(Menu_Log_Times, Label(text::kLogTimes));
  menuFile_ = new wxMenu;
  menuFile_->Append(Menu_Disconnect, Label(text::kMenuDisconnect, "Ctrl+D"));
  menuFile_->AppendSeparator();
  menuFile_->Append(Menu_Topics, Label(text::kMenuTopics));
  menuFile_->AppendSeparator();
  menuFile_->AppendSubMenu(menuDebug_, Label(text::kMenuDebug));
  menuFile_->AppendSeparator();
  menuFile_->Append(Menu_Exit, Label(text::kMenuExit, "Alt+F4"));
  auto* const time = new wxMenu;
  time->Append(Menu_TSC, Label(text::kMenuTSC, "Ctrl+T"));
  auto* const help = new wxMenu;
  help->Append(Menu_Help, Label(text::kHelpContents, "F1"));
  help->Append(Menu_Keys, Label(text::kHelpKeys));
  help->AppendSeparator();
  help->Append(Menu_Demo, Label(text::kTryDemo));
  help->AppendSeparator();
  help->Append(Menu_About, Label(text::kMenuAbout));
  menuFile_->Enable(Menu_Topics, !proc_.settings.ViewOnly && !proc_.settings.Demo);
  help->Enable(Menu_Demo, !proc_.settings.Demo);
  auto* const bar = new wxMenuBar;
  bar->Append(menuFile_, Label(text::kMenuFile));
  bar->Append(time, Label(text::kMenuTime));
  bar->Append(help, Label(text::kMenuHelp));
  SetMenuBar(bar);
}

void ZV_Main::BuildToolbar() {
  auto* const bar = CreateToolBar(wxTB_HORIZONTAL | wxTB_FLAT | wxTB_TEXT);
  bar->SetName("Toolbar");
  const auto add = [&](int id, std::int32_t number, const wxBitmapBundle& picture) {
    const wxString label = wxControl::RemoveMnemonics(Label(number));
    bar->AddTool(id, label, picture, label);
  };
  add(Menu_Disconnect, text::kMenuDisconnect, DisconnectPicture());
  add(Menu_TSC, text::kMenuTSC, CataloguesPicture());
  bar->AddSeparator();
  add(Menu_Debug_Clear, text::kMenuDebugClear, ClearPicture());
  bar->Realize();
}

void ZV_Main::BuildControls() {
  auto* const panel = new wxPanel(this);
  panel->Bind(wxEVT_PAINT, &ZV_Main::OnFirstPaint, this);
  const int gap = FromDIP(kGap);
  auto* const topicsLabel = new wxStaticText(panel, wxID_ANY, Label(text::kTopicsLabel));
  Combo_Topics = new wxChoice(panel, wxID_ANY);
  // Drawing its arrow makes the toolkit load its icon theme, a tenth of the time to the first
  // frame. `FillTopics` shows it right after that frame.
  Combo_Topics->Hide();
  List_Output = new LogList(panel, proc_.log, proc_.texts);
  auto* const inputLabel = new wxStaticText(panel, wxID_ANY, Label(text::kInputLabel));
  Text_Input =
      new wxTextCtrl(panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
  Text_Input->SetFont(FixedFont());
  if (proc_.settings.ViewOnly) {
    Text_Input->SetEditable(false);
    Text_Input->SetHint(Label(text::kViewOnlyInput));
    Text_Input->SetToolTip(Label(text::kViewOnlyInput));
  }
  Combo_Topics->SetName("Combo_Topics");
  List_Output->SetName("List_Output");
  Text_Input->SetName("Text_Input");

  const int labelWidth = std::max(topicsLabel->GetBestSize().x, inputLabel->GetBestSize().x);
  const auto rowOf = [gap, labelWidth](wxStaticText* label, wxWindow* control) {
    label->SetMinSize({labelWidth, -1});
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(label, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
    row->Add(control, 1, wxALIGN_CENTER_VERTICAL | wxRESERVE_SPACE_EVEN_IF_HIDDEN);
    return row;
  };
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  if (wxWindow* const strip = NewModeStrip(panel, proc_)) whole->Add(strip, 0, wxEXPAND);
  whole->Add(rowOf(topicsLabel, Combo_Topics), 0, wxEXPAND | wxALL, gap);
  whole->Add(List_Output, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
  findPlace_ = new wxBoxSizer(wxVERTICAL);
  whole->Add(findPlace_, 0, wxEXPAND);
  whole->Add(rowOf(inputLabel, Text_Input), 0, wxEXPAND | wxALL, gap);
  panel->SetSizer(whole);

  constexpr std::array kShares{-2, -3};
  const std::array widths{kShares[0], kShares[1], FromDIP(kSequenceWidth)};
  CreateStatusBar(static_cast<int>(widths.size()))->SetName("StatusBar");
  SetStatusWidths(static_cast<int>(widths.size()), widths.data());
  SetStatusBarPane(-1);  // keep the menus' help texts out of the panels
  SetMinSize(FromDIP(wxSize(kSmallestWidth, kSmallestHeight)));
  SetSize(FromDIP(wxSize(kWidth, kHeight)));
}

// Implements the labels' mnemonics, which the systems do not do for every kind of control.
void ZV_Main::BuildAccelerators() {
  std::vector<wxAcceleratorEntry> keys;
  const auto add = [&](std::int32_t label, wxWindow* control) {
    const int key = MnemonicOf(ToWx(proc_.Text(label)));
    if (key == 0) return;
    const int id = control->GetId();
    keys.emplace_back(wxACCEL_ALT, key, id);
    Bind(
        wxEVT_MENU, [control](wxCommandEvent&) { control->SetFocus(); }, id);
  };
  add(text::kTopicsLabel, Combo_Topics);
  add(text::kInputLabel, Text_Input);
  SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
}

}  // namespace zek
