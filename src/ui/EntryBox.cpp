#include "ui/EntryBox.h"

#include <wx/settings.h>

#include "ui/Forms.h"

namespace zek {
namespace {
constexpr unsigned long kLongestEntry = 20;
}  // namespace

wxTextCtrl* NewEntryBox(wxWindow* parent, const std::string& name, const wxString& widest,
                        bool editable) {
  auto* const box = new wxTextCtrl(parent, wxID_ANY);
  box->SetName(name);
  box->SetFont(FixedFont());
  box->SetMaxLength(kLongestEntry);
  box->SetMinSize(box->GetSizeFromTextSize(box->GetTextExtent(widest)));
  if (!editable) {
    box->SetEditable(false);
    box->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
  }
  box->Bind(wxEVT_SET_FOCUS, [box](wxFocusEvent& event) {
    box->SelectAll();
    event.Skip();
  });
  // The click that gives the box the focus also clears the selection, so select again afterwards.
  box->Bind(wxEVT_LEFT_DOWN, [box](wxMouseEvent& event) {
    if (!box->HasFocus()) box->CallAfter([box] { box->SelectAll(); });
    event.Skip();
  });
  return box;
}

void MarkLabel(wxStaticText& heading, bool current) {
  const auto colour = [current](wxSystemColour of) {
    return current ? wxSystemSettings::GetColour(of) : wxNullColour;
  };
  const wxFont font = heading.GetParent()->GetFont();
  heading.SetFont(current ? font.Bold() : font);
  heading.SetForegroundColour(colour(wxSYS_COLOUR_HIGHLIGHTTEXT));
  heading.SetBackgroundColour(colour(wxSYS_COLOUR_HIGHLIGHT));
  heading.Refresh();
}

}  // namespace zek
