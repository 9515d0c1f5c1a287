#include <wx/button.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "forms/main/Demo.h"
#include "forms/main/ZV_Main.h"
#include "forms/main/ZV_Topics.h"
#include "lang/TextNumbers.h"

// How the main window changes its topics, and what it shows while there are none.
namespace zek {
namespace {
constexpr int kGap = 10;
constexpr int kWrap = 640;
}  // namespace

wxWindow* ZV_Main::NewWelcome() {
  const int gap = FromDIP(kGap);
  auto* const panel = new wxPanel(List_Output->GetParent());
  panel->SetName("Panel_Welcome");
  auto* const title = new wxStaticText(panel, wxID_ANY, Label(text::kNoTopicsTitle));
  title->SetFont(title->GetFont().Bold().Scaled(1.3F));
  auto* const advice = new wxStaticText(panel, wxID_ANY, Label(text::kNoTopicsAdvice));
  advice->Wrap(FromDIP(kWrap));
  auto* const add = new wxButton(panel, wxID_ANY, Label(text::kAddFirstTopic));
  add->SetName("Command_AddTopic");
  add->Enable(!proc_.settings.ViewOnly);
  add->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChangeTopics(AddTopic); });
  auto* const demo = new wxButton(panel, wxID_ANY, Label(text::kTryDemo));
  demo->SetName("Command_Demo");
  demo->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { TryDemo(); });
  auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->Add(add, 0, wxRIGHT, gap);
  buttons->Add(demo);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(title, 0, wxALL, gap);
  whole->Add(advice, 0, wxLEFT | wxRIGHT, gap);
  whole->Add(buttons, 0, wxALL, gap);
  panel->SetSizer(whole);
  return panel;
}

// Above the log, only while there are no topics.
void ZV_Main::ShowWelcome() {
  const bool none = proc_.topics.TopicCount() == 0;
  if (!none && welcome_ == nullptr) return;
  wxSizer& parts = *List_Output->GetContainingSizer();
  if (welcome_ == nullptr) {
    constexpr std::size_t below = 3;  // the log, its search and the command line
    welcome_ = NewWelcome();
    parts.Insert(parts.GetItemCount() - below, welcome_, 0, wxEXPAND);
  }
  welcome_->Show(none);
  List_Output->GetParent()->Layout();
}

// The forms wait for answers, and a change disconnects, so nothing else may run meanwhile.
void ZV_Main::ChangeTopics(void (*change)(wxWindow*, ZV_Proc&)) {
  if (!IsAtRest() || proc_.status.Busy > 0 || proc_.settings.ViewOnly) return;
  const Working working(*this);
  change(this, proc_);
  FillTopics();
  ShowState();
}

void ZV_Main::TryDemo() {
  StartDemo(proc_, [form = wxWeakRef<ZV_Main>(this)] {
    if (form) form->proc_.ToUser().Tell(Icon::Exclamation, text::kDemoFailed);
  });
}

}  // namespace zek
