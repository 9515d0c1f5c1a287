#include "ui/PromptBox.h"

#include <algorithm>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/display.h>
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
constexpr int kMostLines = 20;  // visible without scrolling, if the screen has room
constexpr int kMessageWidth = 560;
constexpr int kMessageHeight = 300;  // a longer message scrolls

wxArtID ArtOf(Icon icon) {
  switch (icon) {
    case Icon::Exclamation:
      return wxART_WARNING;
    case Icon::Critical:
      return wxART_ERROR;
    case Icon::Question:
      return wxART_QUESTION;
    case Icon::Information:
    case Icon::None:
      break;
  }
  return wxART_INFORMATION;
}

// The size of the box with all its lines, but at most that of the screen.
wxSize FullSize(const wxDialog& box, const wxWindow& lines, const wxString& text) {
  wxSize size = box.GetSize();
  const int shown = std::clamp(text.Freq('\n') + 1, kFewestLines, kMostLines);
  size.y += (lines.GetCharHeight() + 1) * (shown - kFewestLines);
  size.DecTo(wxDisplay(&box).GetClientArea().GetSize());
  size.IncTo(box.GetMinSize());
  return size;
}

}  // namespace

PromptBox::PromptBox(wxWindow* parent, const Content& content, const std::vector<Button>& buttons,
                     int standard)
    : wxDialog(parent, wxID_ANY, content.caption, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "PromptBox") {
  const int gap = FromDIP(kGap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  const bool hasLines = !content.lines.empty();
  whole->Add(Head(content), hasLines ? 0 : 1, wxEXPAND | wxALL, gap);
  wxWindow* lines = nullptr;
  if (hasLines) {
    // Accessibility names a control after the label created just before it.
    whole->Add(new wxStaticText(this, wxID_ANY, content.label), 0, wxLEFT | wxRIGHT, gap);
    lines = Lines(content);
    whole->Add(lines, 1, wxEXPAND | wxALL, gap);
  }
  whole->Add(Buttons(buttons, standard), 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  SetSizerAndFit(whole);
  if (lines != nullptr) SetSize(FullSize(*this, *lines, content.lines));
  CentreOnParent();
  if (parent != nullptr && parent->HasFlag(wxSTAY_ON_TOP)) SetTopmost(*this, true);
}

wxSizer* PromptBox::Head(const Content& content) {
  auto* const head = new wxBoxSizer(wxHORIZONTAL);
  if (content.icon != Icon::None) {
    const wxBitmapBundle icon =
        wxArtProvider::GetBitmapBundle(ArtOf(content.icon), wxART_MESSAGE_BOX);
    head->Add(new wxStaticBitmap(this, wxID_ANY, icon), 0, wxRIGHT, FromDIP(kGap));
  }
  wxWindow* const message = Message(content.message);
  const bool scrolls = dynamic_cast<wxTextCtrl*>(message) != nullptr;
  head->Add(message, scrolls ? wxSizerFlags(1).Expand() : wxSizerFlags(1).CenterVertical());
  return head;
}

wxWindow* PromptBox::Message(const wxString& message) {
  auto* const label = new wxStaticText(this, wxID_ANY, {});
  label->SetName("Label_Message");
  label->SetLabelText(message);
  label->Wrap(FromDIP(kMessageWidth));
  // A long path is not wrapped.
  const wxSize best = label->GetBestSize();
  if (best.y <= FromDIP(kMessageHeight) && best.x <= FromDIP(kMessageWidth)) return label;
  label->Destroy();
  auto* const box = new wxTextCtrl(this, wxID_ANY, message, wxDefaultPosition,
                                   FromDIP(wxSize(kMessageWidth, kMessageHeight)),
                                   wxTE_MULTILINE | wxTE_READONLY);
  box->SetName("Text_Message");
  SetAccessibleName(*box, GetTitle());
  box->SetInsertionPoint(0);
  return box;
}

wxWindow* PromptBox::Lines(const Content& content) {
  auto* const box = new wxTextCtrl(this, wxID_ANY, content.lines, wxDefaultPosition, wxDefaultSize,
                                   wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
  box->SetName("Text_Details");
  box->SetFont(FixedFont());
  const wxSize letter = box->GetTextExtent("0");
  box->SetInitialSize(wxSize(letter.x * kColumns, (letter.y + 1) * kFewestLines));
  box->SetInsertionPoint(0);
  SetAccessibleName(*box, wxControl::RemoveMnemonics(content.label));
  return box;
}

wxSizer* PromptBox::Buttons(const std::vector<Button>& buttons, int standard) {
  auto* const row = new wxStdDialogButtonSizer();
  for (const Button& each : buttons) {
    auto* const button = new wxButton(this, each.id, each.label);
    row->AddButton(button);
    if (each.id != standard) continue;
    button->SetDefault();
    // Deferred until the box is visible. Otherwise the lines get the focus and swallow Enter.
    CallAfter([button] { button->SetFocus(); });
  }
  row->Realize();
  SetAffirmativeId(buttons.front().id);
  SetEscapeId(buttons.back().id);
  Bind(wxEVT_BUTTON, [this](wxCommandEvent& event) { EndModal(event.GetId()); });
  return row;
}

}  // namespace zek
