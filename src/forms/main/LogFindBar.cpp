#include "forms/main/LogFindBar.h"

#include <string>
#include <utility>

#include <wx/button.h>
#include <wx/sizer.h>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 6;
constexpr int kBoxWidth = 100;
constexpr const char* kWidestPlace = "99999 / 99999";
}  // namespace

LogFindBar::LogFindBar(wxWindow* parent, const LanguageTexts& texts, LogList& list,
                       const std::function<void()>& close)
    : wxPanel(parent), texts_(texts), list_(list) {
  SetName("Panel_Find");
  Build(close);
  Text_Find->Bind(wxEVT_TEXT,
                  [this](wxCommandEvent&) { list_.Seek(FromWx(Text_Find->GetValue())); });
  Text_Find->Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key != WXK_RETURN && key != WXK_NUMPAD_ENTER) {
      event.Skip();
    } else if (event.ShiftDown()) {
      Previous();
    } else {
      Next();
    }
  });
}

wxString LogFindBar::Text(std::int32_t number) const { return ToWx(texts_.Text(number)); }

void LogFindBar::Build(const std::function<void()>& close) {
  const int gap = FromDIP(kGap);
  auto* const label = new wxStaticText(this, wxID_ANY, Text(text::kLogFindLabel));
  Text_Find = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, FromDIP(wxSize(kBoxWidth, -1)),
                             wxTE_PROCESS_ENTER);
  Text_Find->SetName("Text_Find");
  SetAccessibleName(*Text_Find, Text(text::kLogFindLabel));
  Label_Found = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition,
                                 {GetTextExtent(kWidestPlace).x, -1}, wxST_NO_AUTORESIZE);
  Label_Found->SetName("Label_Found");
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(label, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  row->Add(Text_Find, 1, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  row->Add(Label_Found, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  const auto add = [&](std::int32_t number, const char* name, auto action) {
    auto* const button = new wxButton(this, wxID_ANY, wxControl::RemoveMnemonics(Text(number)),
                                      wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
    button->SetName(name);
    button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
    row->Add(button, 0, wxALIGN_CENTER_VERTICAL | wxLEFT, gap);
  };
  add(text::kLogFindPrevious, "Command_Previous", [this] { Previous(); });
  add(text::kLogFindNext, "Command_Next", [this] { Next(); });
  add(text::kBrowserClose, "Command_CloseFind", close);
  SetSizer(row);
}

void LogFindBar::Open() {
  Show();
  Text_Find->SetFocus();
  Text_Find->SelectAll();
  if (!list_.Search().Active()) list_.Seek(FromWx(Text_Find->GetValue()));
}

void LogFindBar::End() {
  Hide();
  list_.Seek({});
}

void LogFindBar::Next() { list_.FindNext(); }

void LogFindBar::Previous() { list_.FindPrevious(); }

void LogFindBar::ShowPlace() {
  const LogSearch& search = list_.Search();
  wxString place;
  if (search.Active()) {
    place = ToWx(Message(texts_.Text(text::kLogFound),
                         {std::to_string(search.Place()), std::to_string(search.Total())}));
  }
  if (Label_Found->GetLabel() != place) Label_Found->SetLabel(place);
}

}  // namespace zek
