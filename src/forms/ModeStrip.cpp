#include "forms/ModeStrip.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "lang/TextNumbers.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 4;
const wxColour kAmber(255, 213, 79);
}  // namespace

wxWindow* NewModeStrip(wxWindow* parent, const ZV_Proc& proc) {
  wxString modes;
  const auto add = [&](bool on, std::int32_t number) {
    if (on) modes += (modes.empty() ? "" : "   ") + ToWx(proc.Text(number));
  };
  add(proc.settings.Demo, text::kStripDemo);
  add(proc.settings.LocalMode, text::kStripLocal);
  add(proc.settings.ViewOnly, text::kStripViewOnly);
  if (modes.empty()) return nullptr;
  auto* const strip = new wxPanel(parent);
  strip->SetBackgroundColour(kAmber);
  auto* const label = new wxStaticText(strip, wxID_ANY, modes, wxDefaultPosition, wxDefaultSize,
                                       wxST_ELLIPSIZE_END);
  label->SetName("Label_Mode");
  label->SetForegroundColour(*wxBLACK);
  label->SetFont(label->GetFont().Bold());
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(label, 1, wxALL, strip->FromDIP(kGap));
  strip->SetSizer(row);
  return strip;
}

}  // namespace zek
