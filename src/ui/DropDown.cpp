#include "ui/DropDown.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/calctrl.h>
#include <wx/generic/calctrlg.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>
#include <wx/vlbox.h>
#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

#include "ui/CalendarHeading.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kPadding = 4;
constexpr int kMostLines = 12;
constexpr int kFrame = 1;
const wchar_t* const kTick = L"\u2713 ";

int Plain(int key) {
  switch (key) {
    case WXK_NUMPAD_UP:
      return WXK_UP;
    case WXK_NUMPAD_DOWN:
      return WXK_DOWN;
    case WXK_NUMPAD_PAGEUP:
      return WXK_PAGEUP;
    case WXK_NUMPAD_PAGEDOWN:
      return WXK_PAGEDOWN;
    default:
      return key;
  }
}

bool IsPress(wxEventType type) {
  const std::array presses{
      static_cast<wxEventType>(wxEVT_LEFT_DOWN), static_cast<wxEventType>(wxEVT_LEFT_DCLICK),
      static_cast<wxEventType>(wxEVT_RIGHT_DOWN), static_cast<wxEventType>(wxEVT_MIDDLE_DOWN)};
  return std::find(presses.begin(), presses.end(), type) != presses.end();
}

#ifdef __WXGTK__
gboolean PassOn(GtkWidget* /*from*/, GdkEvent* event, gpointer form) {
  return gtk_widget_event(GTK_WIDGET(form), event);
}
#endif

// A modal form keeps the mouse away from the other windows of its group. Without a window manager
// the window under the mouse gets the keys, which belong to the form.
void LeaveModalGroup([[maybe_unused]] const wxWindow& window, [[maybe_unused]] wxWindow& box) {
#ifdef __WXGTK__
  GtkWidget* const form = wxGetTopLevelParent(&box)->GetHandle();
  g_signal_connect(window.GetHandle(), "key-press-event", G_CALLBACK(PassOn), form);
  g_signal_connect(window.GetHandle(), "key-release-event", G_CALLBACK(PassOn), form);
  GtkWindowGroup* const group = gtk_window_group_new();
  gtk_window_group_add_window(group, GTK_WINDOW(window.GetHandle()));
  g_object_unref(group);
#endif
}

bool IsModifier(int key) {
  return key == WXK_SHIFT || key == WXK_CONTROL || key == WXK_ALT || key == WXK_CAPITAL;
}

}  // namespace

DropDown::DropDown(wxTextCtrl& box, std::function<void(const std::string& typed)> choose)
    : wxPopupWindow(&box), box_(box), choose_(std::move(choose)) {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));  // the frame
  LeaveModalGroup(*this, box);
  wxEvtHandler::AddFilter(this);
}

DropDown::~DropDown() { wxEvtHandler::RemoveFilter(this); }

void DropDown::Frame(wxWindow* content) {
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(content, 1, wxEXPAND | wxALL, kFrame);
  SetSizerAndFit(whole);
}

void DropDown::Open() {
  Fit();
  const wxWindow& cell = *box_.GetParent();
  Position(cell.GetScreenPosition(), wxSize(0, cell.GetSize().y));
  Show();
}

void DropDown::Close() {
  if (!IsShown()) return;
  Hide();
  // It may be handling an event of its own.
  CallAfter([this] { Destroy(); });
}

void DropDown::Choose() {
  const std::optional<std::string> chosen = Chosen();
  const auto choose = choose_;
  Close();
  if (chosen) choose(*chosen);
}

bool DropDown::TakeKey(const wxKeyEvent& event) {
  const int key = Plain(event.GetKeyCode());
  if (IsModifier(key)) return false;
  if (!event.HasAnyModifiers()) {
    if (Move(key)) return true;
    if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
      Choose();
      return true;
    }
  }
  Close();
  return key == WXK_ESCAPE || (event.AltDown() && (key == WXK_UP || key == WXK_DOWN));
}

int DropDown::FilterEvent(wxEvent& event) {
  const auto* const window = dynamic_cast<const wxWindow*>(event.GetEventObject());
  if (!IsShown() || window == nullptr) return Event_Skip;
  if (event.GetEventType() == wxEVT_MOVE && window == wxGetTopLevelParent(&box_)) Close();
  if (!IsPress(event.GetEventType())) return Event_Skip;
  const wxWindow* const cell = box_.GetParent();
  if (window != this && window != cell && !IsDescendant(const_cast<wxWindow*>(window)) &&
      window != &box_) {
    Close();
  }
  return Event_Skip;
}

// --- The list ---

namespace {

class Items final : public wxVListBox {
 public:
  Items(wxWindow* parent, std::vector<DropItem> items, std::size_t nearest)
      : items_(std::move(items)) {
    // The drop-down draws the frame; a border would take the room of the last line.
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    SetFont(parent->GetParent()->GetFont());
    line_ = GetTextExtent("Mg").y + 2 * FromDIP(kPadding);
    SetItemCount(items_.size());
    SetMinSize(Size());
    const auto ticked = std::find_if(items_.begin(), items_.end(),
                                     [](const DropItem& item) { return item.ticked; });
    if (ticked != items_.end()) {
      nearest = static_cast<std::size_t>(ticked - items_.begin());
      SetSelection(static_cast<int>(nearest));
    }
    nearest_ = nearest;
  }

  const DropItem& At(int item) const { return items_.at(static_cast<std::size_t>(item)); }
  // To be called when the size is known.
  void ShowNearest() { ScrollToRow(nearest_ < kMostLines / 2 ? 0 : nearest_ - kMostLines / 2); }

  bool Move(int key) {
    const int last = static_cast<int>(items_.size()) - 1;
    const int at = GetSelection();
    const int from = at == wxNOT_FOUND ? static_cast<int>(nearest_) : at;
    switch (key) {
      case WXK_UP:
        return Select(at == wxNOT_FOUND ? from : from - 1, last);
      case WXK_DOWN:
        return Select(at == wxNOT_FOUND ? from : from + 1, last);
      case WXK_PAGEUP:
        return Select(from - kMostLines, last);
      case WXK_PAGEDOWN:
        return Select(from + kMostLines, last);
      default:
        return false;
    }
  }

  // The focus stays in the box.
  bool AcceptsFocus() const override { return false; }
  void SetFocus() override {}

 private:
  bool Select(int item, int last) {
    SetSelection(std::clamp(item, 0, last));
    return true;
  }

  wxSize Size() const {
    int width = 0;
    for (const DropItem& item : items_)
      width = std::max(width, GetTextExtent(kTick + item.text + "  " + item.value).x);
    const int lines = std::min(kMostLines, static_cast<int>(items_.size()));
    const bool scrolls = static_cast<int>(items_.size()) > kMostLines;
    const int bar = scrolls ? wxSystemSettings::GetMetric(wxSYS_VSCROLL_X) : 0;
    return {width + 4 * FromDIP(kPadding) + bar, lines * line_};
  }

  wxCoord OnMeasureItem(std::size_t /*item*/) const override { return line_; }

  void OnDrawItem(wxDC& dc, const wxRect& place, std::size_t number) const override {
    const DropItem& item = items_.at(number);
    const bool selected = IsSelected(number);
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(selected ? wxSYS_COLOUR_HIGHLIGHTTEXT
                                                              : wxSYS_COLOUR_WINDOWTEXT));
    const wxRect inside = wxRect(place).Deflate(FromDIP(kPadding), 0);
    const int tick = dc.GetTextExtent(kTick).x;
    if (item.ticked) dc.DrawLabel(kTick, inside, wxALIGN_CENTER_VERTICAL);
    dc.DrawLabel(item.text, wxRect(inside.x + tick, inside.y, inside.width - tick, inside.height),
                 wxALIGN_CENTER_VERTICAL);
    dc.DrawLabel(item.value, inside, wxALIGN_CENTER_VERTICAL | wxALIGN_RIGHT);
  }

  std::vector<DropItem> items_;
  std::size_t nearest_ = 0;
  int line_ = 0;
};

class DropList final : public DropDown {
 public:
  DropList(wxTextCtrl& box, std::vector<DropItem> items, std::size_t nearest,
           std::function<void(const std::string&)> choose)
      : DropDown(box, std::move(choose)), items_(new Items(this, std::move(items), nearest)) {
    SetName("Menu_Popup");
    Frame(items_);
    items_->ShowNearest();
    items_->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
      const int under = items_->VirtualHitTest(event.GetY());
      if (under != wxNOT_FOUND) items_->SetSelection(under);
    });
    items_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      const int under = items_->VirtualHitTest(event.GetY());
      if (under == wxNOT_FOUND) return;
      items_->SetSelection(under);
      Choose();
    });
  }

 protected:
  bool Move(int key) override { return items_->Move(key); }
  std::optional<std::string> Chosen() const override {
    const int at = items_->GetSelection();
    return at == wxNOT_FOUND ? std::nullopt : std::optional(items_->At(at).typed);
  }

 private:
  Items* items_;
};

// --- The calendar ---

class Days final : public wxGenericCalendarCtrl {
 public:
  Days(wxWindow* parent, const wxDateTime& date)
      : wxGenericCalendarCtrl(parent, wxID_ANY, date, wxDefaultPosition, wxDefaultSize,
                              wxCAL_MONDAY_FIRST | wxCAL_SEQUENTIAL_MONTH_SELECTION |
                                  wxCAL_SHOW_SURROUNDING_WEEKS | wxBORDER_NONE) {}

  // The focus stays in the box.
  bool AcceptsFocus() const override { return false; }
  void SetFocus() override {}
};

class DropCalendar final : public DropDown {
 public:
  DropCalendar(wxTextCtrl& box, const wxDateTime& date, const LanguageTexts& texts,
               std::function<void(const std::string&)> choose)
      : DropDown(box, std::move(choose)),
        days_(new Days(this, date)),
        heading_(new CalendarHeading(*days_, texts)) {
    SetName("Calendar_Popup");
    Frame(days_);
    // A press on a day of another month would turn the page below the mouse.
    days_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
      pressed_ = DayUnder(event.GetPosition());
      event.Skip(!pressed_.IsValid());
    });
    days_->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      const wxDateTime under = DayUnder(event.GetPosition());
      if (!under.IsValid() || !pressed_.IsValid() || under != pressed_) return event.Skip();
      days_->SetDate(under);
      Choose();
    });
  }

 protected:
  bool Move(int key) override {
    const wxDateTime date = days_->GetDate();
    switch (key) {
      case WXK_LEFT:
        return Go(date - wxDateSpan::Day());
      case WXK_RIGHT:
        return Go(date + wxDateSpan::Day());
      case WXK_UP:
        return Go(date - wxDateSpan::Week());
      case WXK_DOWN:
        return Go(date + wxDateSpan::Week());
      case WXK_PAGEUP:
        return Go(date - wxDateSpan::Month());
      case WXK_PAGEDOWN:
        return Go(date + wxDateSpan::Month());
      default:
        return false;
    }
  }
  std::optional<std::string> Chosen() const override {
    return FromWx(days_->GetDate().FormatISODate());
  }

 private:
  bool Go(const wxDateTime& date) {
    days_->SetDate(date);
    heading_->Refresh();
    return true;
  }
  // Invalid outside the days.
  wxDateTime DayUnder(const wxPoint& place) {
    wxDateTime day;
    const wxCalendarHitTestResult hit = days_->HitTest(place, &day);
    return hit == wxCAL_HITTEST_DAY || hit == wxCAL_HITTEST_SURROUNDING_WEEK ? day : wxDateTime();
  }

  Days* days_;
  CalendarHeading* heading_;
  wxDateTime pressed_;
};

}  // namespace

DropDown* NewDropList(wxTextCtrl& box, std::vector<DropItem> items, std::size_t nearest,
                      std::function<void(const std::string& typed)> choose) {
  return new DropList(box, std::move(items), nearest, std::move(choose));
}

DropDown* NewDropCalendar(wxTextCtrl& box, const std::string& date, const LanguageTexts& texts,
                          std::function<void(const std::string& typed)> choose) {
  wxDateTime begin;
  if (!begin.ParseISODate(ToWx(date))) begin = wxDateTime::Today();
  return new DropCalendar(box, begin, texts, std::move(choose));
}

}  // namespace zek
