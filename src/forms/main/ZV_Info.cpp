#include "forms/main/ZV_Info.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "lang/TextNumbers.h"
#include "ui/Forms.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kTickMs = 1000;
constexpr int kMostTicks = 20;
constexpr int kPictureSize = 64;
constexpr int kGap = 16;
}  // namespace

ZV_Info::ZV_Info(wxWindow* parent, const LanguageTexts& texts)
    : wxDialog(parent, wxID_ANY, "ZEK View") {
  SetName("ZV_Info");
  // Message boxes take another parent, see WxPrompts: one of their own would be closed with it.
  SetExtraStyle(GetExtraStyle() | wxWS_EX_TRANSIENT);
  SetIcons(ProgramIcons());
  Build(texts);
  CenterForm(*this);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Destroy(); });
  Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
  Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_ESCAPE || key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
      Close();
    } else {
      event.Skip();
    }
  });
  Timer_UnLoad.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTick(); });
  Timer_UnLoad.Start(kTickMs);
}

void ZV_Info::Build(const LanguageTexts& texts) {
  const int gap = FromDIP(kGap);
  auto* const lines = new wxBoxSizer(wxVERTICAL);
  auto* const name = new wxStaticText(this, wxID_ANY, "ZEK View");
  name->SetFont(name->GetFont().Bold().Scaled(1.6F));
  lines->Add(name);
  lines->Add(new wxStaticText(this, wxID_ANY, "Version " ZEKVIEW_VERSION), 0, wxBOTTOM, gap);
  for (const std::int32_t number : {text::kAboutLine1, text::kAboutLine2}) {
    lines->Add(new wxStaticText(this, wxID_ANY, ToWx(texts.Text(number))));
  }
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  auto* const picture = new wxStaticBitmap(this, wxID_ANY, ProgramPicture(kPictureSize));
  row->Add(picture, 0, wxALL, gap);
  row->Add(lines, 1, wxTOP | wxRIGHT | wxBOTTOM, gap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(row, 1, wxEXPAND);
  auto* const ok = new wxButton(this, wxID_OK);
  ok->SetDefault();
  whole->Add(ok, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  SetSizerAndFit(whole);
  // The children cover the box, so a click on any of them must close it too.
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { Close(); });
  for (wxWindow* const child : GetChildren()) {
    if (child != ok) child->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { Close(); });
  }
}

void ZV_Info::OnTick() {
  if (++ticks_ > kMostTicks && !HasOpenBox(*this)) Close();
}

}  // namespace zek
