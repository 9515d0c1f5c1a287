#include <wx/button.h>
#include <wx/config.h>
#include <wx/sizer.h>

#include "forms/main/LogFindBar.h"
#include "forms/main/ZV_Main.h"
#include "lang/TextNumbers.h"

// The search in the log, its times, and the way back to its end.
namespace zek {

using namespace main_menu;

namespace {
constexpr int kGap = 6;
constexpr const char* kTimesKey = "/Main/LogTimes";
}  // namespace

void ZV_Main::ShowTimesAsBefore() {
  const bool on = wxConfigBase::Get()->ReadBool(kTimesKey, false);
  menuDebug_->Check(Menu_Log_Times, on);
  List_Output->ShowTimes(on);
}

void ZV_Main::ShowTimes(bool on) {
  wxConfigBase::Get()->Write(kTimesKey, on);
  List_Output->ShowTimes(on);
}

void ZV_Main::OpenFind() {
  if (find_ == nullptr) {
    find_ = new LogFindBar(List_Output->GetParent(), proc_.texts, *List_Output,
                           [this] { CloseFind(); });
    findPlace_->Add(find_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, FromDIP(kGap));
  }
  find_->Open();
  List_Output->GetParent()->Layout();
}

// Returns false if there was no search to end.
bool ZV_Main::CloseFind() {
  if (find_ == nullptr || !find_->IsShown()) return false;
  find_->End();
  List_Output->GetParent()->Layout();
  FocusBesideLog();
  return true;
}

void ZV_Main::FindNext(bool forward) {
  if (find_ == nullptr || !find_->IsShown()) {
    OpenFind();
  } else if (forward) {
    find_->Next();
  } else {
    find_->Previous();
  }
}

void ZV_Main::FocusBesideLog() {
  (Text_Input->IsEnabled() ? static_cast<wxWindow*>(Text_Input) : List_Output)->SetFocus();
}

void ZV_Main::ShowLogPlace() {
  if (find_ != nullptr) find_->ShowPlace();
  const bool back = !List_Output->Place().Follows();
  if (Command_ToEnd == nullptr) {
    if (!back) return;
    Command_ToEnd = new wxButton(List_Output->GetParent(), wxID_ANY, Label(text::kLogToEnd));
    Command_ToEnd->SetName("Command_ToEnd");
    Command_ToEnd->Hide();
    Command_ToEnd->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
      FocusBesideLog();  // the button goes
      List_Output->ToEnd();
    });
    Text_Input->GetContainingSizer()->Add(Command_ToEnd, 0, wxALIGN_CENTER_VERTICAL | wxLEFT,
                                          FromDIP(kGap));
  }
  if (Command_ToEnd->IsShown() == back) return;
  Command_ToEnd->Show(back);
  List_Output->GetParent()->Layout();
}

}  // namespace zek
