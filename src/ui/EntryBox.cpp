#include "ui/EntryBox.h"

#include <array>
#include <utility>

#include <wx/dcbuffer.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr unsigned long kLongestEntry = 20;
constexpr int kBorder = 2;
constexpr int kMargin = 8;
constexpr int kArrow = 13;
constexpr int kSign = 9;

wxColour MarkColour() { return {0xD0, 0x40, 0x00}; }
wxColour System(wxSystemColour colour) { return wxSystemSettings::GetColour(colour); }

// One part in `share` is the other colour.
wxColour Tinted(const wxColour& ground, const wxColour& colour, int share) {
  const auto mix = [share](int one, int other) {
    return static_cast<unsigned char>((one * (share - 1) + other) / share);
  };
  return {mix(ground.Red(), colour.Red()), mix(ground.Green(), colour.Green()),
          mix(ground.Blue(), colour.Blue())};
}

bool IsDropKey(const wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  if (event.GetModifiers() == wxMOD_ALT) return key == WXK_DOWN || key == WXK_NUMPAD_DOWN;
  if (event.GetModifiers() == wxMOD_SHIFT) return key == WXK_F10;
  return event.GetModifiers() == wxMOD_NONE && (key == WXK_WINDOWS_MENU || key == WXK_MENU);
}

}  // namespace

EntryBox::EntryBox(wxWindow* parent, const std::string& name, const wxString& widest, bool editable)
    : wxPanel(parent) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  text_ = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
  text_->SetName(name);
  text_->SetFont(FixedFont());
  text_->SetMaxLength(kLongestEntry);
  text_->SetEditable(editable);
  width_ = text_->GetTextExtent(widest).x + FromDIP(kMargin);
  auto* const inside = new wxBoxSizer(wxHORIZONTAL);
  inside->Add(text_, 1, wxALIGN_CENTER_VERTICAL | wxALL, FromDIP(kBorder));
  room_ = inside->Add(0, 0);
  SetSizer(inside);
  Mark({});
  Bind(wxEVT_PAINT, &EntryBox::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    if (!text_->HasFocus()) Focus();
    if (ArrowPlace().Contains(event.GetPosition())) Toggle();
  });
  text_->Bind(wxEVT_CHAR_HOOK, &EntryBox::OnKey, this);
  const auto onFocus = [this](wxFocusEvent& event) {
    Refresh();
    if (IsOpen() && event.GetEventType() == wxEVT_KILL_FOCUS) open_->Close();
    event.Skip();
  };
  text_->Bind(wxEVT_SET_FOCUS, onFocus);
  text_->Bind(wxEVT_KILL_FOCUS, onFocus);
  // The click that gives the box the focus also clears the selection, so select again afterwards.
  text_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    if (!text_->HasFocus()) CallAfter([this] { text_->SelectAll(); });
    event.Skip();
  });
}

std::string EntryBox::Typed() const { return FromWx(text_->GetValue()); }

void EntryBox::ShowText(const std::string& text) {
  const wxString wanted = ToWx(text);
  if (text_->GetValue() != wanted) text_->ChangeValue(wanted);
}

void EntryBox::Focus() {
  text_->SetFocus();
  text_->SelectAll();
}

void EntryBox::Offer(std::function<DropDown*()> drop, const wxString& toolTip, bool byClick) {
  if (!text_->IsEditable()) return;
  drop_ = std::move(drop);
  hint_ = toolTip;
  Mark(why_);
  if (byClick) {
    // Deferred until the click is handled: it moves the text cursor and still captures the mouse.
    text_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      CallAfter([this] { Toggle(); });
      event.Skip();
    });
  }
  // Suppress the box's own menu on the menu key; the right mouse button still opens it.
  text_->Bind(wxEVT_CONTEXT_MENU, [](wxContextMenuEvent& event) {
    event.Skip(event.GetPosition() != wxDefaultPosition);
  });
}

// A closed one is destroyed later.
bool EntryBox::IsOpen() const { return open_ && open_->IsShown(); }

void EntryBox::Toggle() {
  if (IsOpen()) return open_->Close();
  // A message about the previous box may have moved the focus.
  if (!text_->HasFocus()) return;
  DropDown* const opened = drop_();
  if (opened == nullptr) return;
  open_ = opened;
  opened->Open();
}

void EntryBox::OnKey(wxKeyEvent& event) {
  if (IsOpen()) {
    event.Skip(!open_->TakeKey(event));
  } else if (drop_ && IsDropKey(event)) {
    Toggle();
  } else {
    event.Skip();
  }
}

void EntryBox::SetSpokenName(const wxString& name) {
  spoken_ = name;
  ShowSpokenName();
}

void EntryBox::Mark(const wxString& why) {
  const int width = (drop_ ? kArrow : 0) + (why.empty() ? 0 : kSign);
  room_->SetMinSize(FromDIP(width), 0);
  // The sign takes its room from the text: with a mark the window must not become wider.
  text_->SetMinSize({width_ - (why.empty() ? 0 : FromDIP(kSign)), -1});
  if (why_ != why) {
    why_ = why;
    ShowSpokenName();
  }
  ShowGround();
  Layout();
  Refresh();
  ShowToolTip();
}

void EntryBox::Choose(bool chosen) {
  if (chosen_ == chosen) return;
  chosen_ = chosen;
  ShowGround();
  Refresh();
}

void EntryBox::ShowGround() {
  constexpr int markShare = 5;
  constexpr int chosenShare = 3;
  wxColour colour = System(text_->IsEditable() ? wxSYS_COLOUR_WINDOW : wxSYS_COLOUR_BTNFACE);
  if (!why_.empty()) colour = Tinted(colour, MarkColour(), markShare);
  if (chosen_) colour = Tinted(colour, System(wxSYS_COLOUR_HIGHLIGHT), chosenShare);
  if (text_->GetBackgroundColour() != colour) text_->SetBackgroundColour(colour);
}

void EntryBox::ShowSpokenName() {
  SetAccessibleName(*text_, why_.empty() ? spoken_ : spoken_ + ". " + why_);
}

void EntryBox::ShowToolTip() {
  const wxString tip = why_.empty() ? hint_ : why_;
  for (wxWindow* const window : {static_cast<wxWindow*>(this), static_cast<wxWindow*>(text_)})
    if (window->GetToolTipText() != tip) window->SetToolTip(tip);
}

wxRect EntryBox::ArrowPlace() const {
  const wxSize size = GetClientSize();
  const int width = drop_ ? FromDIP(kArrow) : 0;
  return {size.x - width, 0, width, size.y};
}

void EntryBox::OnPaint(wxPaintEvent& /*event*/) {
  wxAutoBufferedPaintDC dc(this);
  const bool marked = !why_.empty();
  dc.SetBackground(text_->GetBackgroundColour());
  dc.Clear();
  const wxRect arrow = ArrowPlace();
  if (drop_) {
    const int half = FromDIP(3);
    const wxPoint middle = arrow.GetPosition() + arrow.GetSize() / 2;
    const std::array<wxPoint, 3> corners{wxPoint(middle.x - half, middle.y - half / 2),
                                         wxPoint(middle.x + half, middle.y - half / 2),
                                         wxPoint(middle.x, middle.y + half - half / 2)};
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(System(IsEnabled() ? wxSYS_COLOUR_WINDOWTEXT : wxSYS_COLOUR_GRAYTEXT));
    dc.DrawPolygon(static_cast<int>(corners.size()), corners.data());
  }
  if (marked) {
    dc.SetFont(GetFont().Bold());
    dc.SetTextForeground(MarkColour());
    dc.DrawLabel("!", wxRect(arrow.x - FromDIP(kSign), 0, FromDIP(kSign), arrow.height),
                 wxALIGN_CENTER);
  }
  const bool focused = text_->HasFocus() || chosen_;
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.SetPen(wxPen(marked    ? MarkColour()
                  : focused ? System(wxSYS_COLOUR_HIGHLIGHT)
                            : System(wxSYS_COLOUR_BTNSHADOW),
                  focused ? FromDIP(kBorder) : 1));
  dc.DrawRectangle(focused ? GetClientRect().Deflate(FromDIP(1)) : GetClientRect());
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
