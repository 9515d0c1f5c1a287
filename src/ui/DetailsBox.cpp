#include "ui/DetailsBox.h"

#include <algorithm>

#include <wx/artprov.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "ui/AccessibleName.h"
#include "ui/Forms.h"

namespace zek {
namespace {

constexpr int kGap = 10;
constexpr int kColumns = 84;
constexpr int kFewestLines = 6;
constexpr int kMostLines = 20;  // visible without scrolling
constexpr int kMessageWidth = 560;

wxArtID ArtOf(long style) {
  if ((style & wxICON_EXCLAMATION) != 0) return wxART_WARNING;
  if ((style & wxICON_ERROR) != 0) return wxART_ERROR;
  return (style & wxICON_QUESTION) != 0 ? wxART_QUESTION : wxART_INFORMATION;
}

}  // namespace

DetailsBox::DetailsBox(wxWindow* parent, const Content& content)
    : wxDialog(parent, wxID_ANY, content.caption, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "DetailsBox") {
  const int gap = FromDIP(kGap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(Head(content), 0, wxEXPAND | wxALL, gap);
  // Accessibility names a control after the label created just before it.
  whole->Add(new wxStaticText(this, wxID_ANY, content.label), 0, wxLEFT | wxRIGHT, gap);
  whole->Add(Lines(content), 1, wxEXPAND | wxALL, gap);
  whole->Add(Buttons(content.style), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  SetSizerAndFit(whole);
  CentreOnParent();
  if (parent != nullptr && parent->HasFlag(wxSTAY_ON_TOP)) SetTopmost(*this, true);
}

wxSizer* DetailsBox::Head(const Content& content) {
  auto* const head = new wxBoxSizer(wxHORIZONTAL);
  const wxBitmapBundle icon =
      wxArtProvider::GetBitmapBundle(ArtOf(content.style), wxART_MESSAGE_BOX);
  head->Add(new wxStaticBitmap(this, wxID_ANY, icon), 0, wxRIGHT, FromDIP(kGap));
  auto* const message = new wxStaticText(this, wxID_ANY, {});
  message->SetName("Label_Message");
  message->SetLabelText(content.message);
  message->Wrap(FromDIP(kMessageWidth));
  head->Add(message, 1, wxALIGN_CENTER_VERTICAL);
  return head;
}

wxWindow* DetailsBox::Lines(const Content& content) {
  auto* const box = new wxTextCtrl(this, wxID_ANY, content.lines, wxDefaultPosition, wxDefaultSize,
                                   wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  box->SetName("Text_Details");
  box->SetFont(FixedFont());
  const wxSize letter = box->GetTextExtent("0");
  const int lines = std::clamp(content.lines.Freq('\n') + 1, kFewestLines, kMostLines);
  box->SetInitialSize(wxSize(letter.x * kColumns, (letter.y + 1) * lines));
  box->SetInsertionPoint(0);
  SetAccessibleName(*box, wxControl::RemoveMnemonics(content.label));
  return box;
}

wxSizer* DetailsBox::Buttons(long style) {
  auto* const buttons = new wxStdDialogButtonSizer();
  const bool question = (style & wxYES_NO) == wxYES_NO;
  wxButton* standard = nullptr;
  if (question) {
    auto* const yes = new wxButton(this, wxID_YES);
    auto* const no = new wxButton(this, wxID_NO);
    buttons->AddButton(yes);
    buttons->AddButton(no);
    standard = (style & wxNO_DEFAULT) != 0 ? no : yes;
  } else {
    standard = new wxButton(this, wxID_OK);
    buttons->AddButton(standard);
  }
  buttons->Realize();
  SetAffirmativeId(question ? wxID_YES : wxID_OK);
  SetEscapeId(question ? wxID_NO : wxID_OK);
  Bind(wxEVT_BUTTON, [this](wxCommandEvent& event) { EndModal(event.GetId()); });
  standard->SetDefault();
  // Deferred until the box is visible. Otherwise the lines get the focus and swallow Enter.
  CallAfter([standard] { standard->SetFocus(); });
  return buttons;
}

void DetailsBox::SetYesNoLabels(const wxString& yes, const wxString& no) {
  FindWindow(wxID_YES)->SetLabel(yes);
  FindWindow(wxID_NO)->SetLabel(no);
  Fit();
}

}  // namespace zek
