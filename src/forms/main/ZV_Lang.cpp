#include "forms/main/ZV_Lang.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "app/StartSession.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"
#include "ui/Forms.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 12;
constexpr int kListWidth = 240;
}  // namespace

// No language is chosen yet, so the texts are the built-in ones.
ZV_Lang::ZV_Lang(ZV_Proc& proc)
    : wxDialog(nullptr, wxID_ANY, ToWx(proc.Text(text::kLanguageTitle))),
      proc_(proc),
      choices_(LanguagesOf(proc)) {
  SetName("ZV_Lang");
  SetIcons(ProgramIcons());
  Build();
  CenterForm(*this);
  // Without a window manager the program itself must activate the window.
  CallAfter([this] { Raise(); });
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent&) { OnOk(); }, wxID_OK);
  // Enter means OK; some systems would drop down the list instead.
  Combo_Language->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) {
      OnOk();
    } else {
      event.Skip();
    }
  });
}

void ZV_Lang::Build() {
  const int gap = FromDIP(kGap);
  Combo_Language = new wxChoice(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kListWidth, -1)));
  Combo_Language->SetName("Combo_Language");
  for (const LanguageChoice& choice : choices_) Combo_Language->Append(ToWx(choice.name));
  if (!choices_.empty()) Combo_Language->SetSelection(0);
  auto* const Command_Ok = new wxButton(this, wxID_OK);
  Command_Ok->SetName("Command_Ok");
  Command_Ok->SetDefault();
  Command_Ok->Enable(!choices_.empty());
  auto* const buttons = new wxStdDialogButtonSizer;
  buttons->AddButton(Command_Ok);
  buttons->AddButton(new wxButton(this, wxID_CANCEL));
  buttons->Realize();

  auto* const whole = new wxBoxSizer(wxVERTICAL);
  const wxString label = choices_.empty()
                             ? ToWx(Message(proc_.Text(text::kNoLanguages),
                                            {Windows1252FromUtf8(proc_.settings.ProgramPath)}))
                             : ToWx(proc_.Text(text::kLanguageLabel));
  whole->Add(new wxStaticText(this, wxID_ANY, label), 0, wxLEFT | wxTOP | wxRIGHT, gap);
  whole->Add(Combo_Language, 0, wxEXPAND | wxALL, gap);
  whole->Add(buttons, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  SetSizerAndFit(whole);
  Combo_Language->SetFocus();
}

void ZV_Lang::OnOk() {
  const int item = Combo_Language->GetSelection();
  if (item < 0) return;
  // The setting is the three digits of the file's name.
  const std::string name = LanguageFileName(choices_[static_cast<std::size_t>(item)].number);
  const std::string digits = name.substr(name.rfind('.') + 1);
  if (const auto error = proc_.profile.WriteIni("General", "Language", digits)) {
    proc_.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *error));
    return;
  }
  EndModal(wxID_OK);
}

}  // namespace zek
