#include "forms/main/ZV_MainLog.h"

#include <algorithm>
#include <utility>

#include <wx/dcbuffer.h>
#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/weakref.h>

#include "comm/LogText.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "ui/AccessibleName.h"
#include "ui/Clipboard.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kPadding = 2;  // beside a line
const wxColour kHit(255, 213, 79);

wxColour System(wxSystemColour colour) { return wxSystemSettings::GetColour(colour); }

// Marked lines of a log without the focus: a part of the colour with it.
wxColour Pale(const wxColour& colour, const wxColour& ground) {
  constexpr double part = 0.3;
  return {wxColour::AlphaBlend(colour.Red(), ground.Red(), part),
          wxColour::AlphaBlend(colour.Green(), ground.Green(), part),
          wxColour::AlphaBlend(colour.Blue(), ground.Blue(), part)};
}

}  // namespace

LogList::LogList(wxWindow* parent, const ReplyLog& log, const LanguageTexts& texts)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
               wxVSCROLL | wxHSCROLL | wxBORDER_THEME | wxWANTS_CHARS),
      log_(log),
      texts_(texts),
      place_(log),
      search_(log) {
  SetFont(FixedFont());
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetAccessibleName(*this, ToWx(texts.Text(text::kLogName)));
  BindEvents();
}

void LogList::BindEvents() {
  Bind(wxEVT_PAINT, &LogList::OnPaint, this);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    place_.SetPage(static_cast<std::size_t>(std::max(1, GetClientSize().y / RowHeight())));
    Moved();
  });
  const auto refresh = [this](wxEvent& event) {
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_SET_FOCUS, refresh);
  Bind(wxEVT_KILL_FOCUS, refresh);
  Bind(wxEVT_SYS_COLOUR_CHANGED, refresh);
  for (const auto& type : {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP,
                           wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_PAGEUP,
                           wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_THUMBTRACK})
    Bind(type, &LogList::OnScroll, this);
  Bind(wxEVT_MOUSEWHEEL, &LogList::OnWheel, this);
  Bind(wxEVT_LEFT_DOWN, &LogList::OnPress, this);
  Bind(wxEVT_LEFT_DCLICK, &LogList::OnPress, this);
  Bind(wxEVT_MOTION, &LogList::OnDrag, this);
  Bind(wxEVT_LEFT_UP, &LogList::OnRelease, this);
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { press_.reset(); });
  Bind(wxEVT_KEY_DOWN, &LogList::OnKey, this);
  Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { OnMenu(); });
}

void LogList::ShowNew() {
  if (added_ == log_.Added() && replaced_ == log_.Replaced()) return;
  if (replaced_ != log_.Replaced()) widest_ = left_ = 0;
  const auto& lines = log_.Lines();
  const bool all = replaced_ != log_.Replaced() || log_.Added() - added_ > lines.size();
  const std::size_t fresh = all ? lines.size() : static_cast<std::size_t>(log_.Added() - added_);
  added_ = log_.Added();
  replaced_ = log_.Replaced();
  count_ = lines.size();
  for (std::size_t i = lines.size() - fresh; i < lines.size(); ++i)
    widest_ = std::max(widest_, static_cast<int>(std::min(lines[i].size(), kShownCharacters)));
  place_.Update();
  search_.Update();
  Moved();
}

void LogList::ShowTimes(bool on) {
  times_ = on;
  if (search_.Active()) search_.Seek(search_.What(), times_);
  Moved();
}

// --- Search ---

void LogList::Seek(const std::string& what) {
  search_.Seek(what, times_);
  Found(search_.Nearest(place_.Cursor()));
}

void LogList::FindNext() { Found(search_.Next()); }

void LogList::FindPrevious() { Found(search_.Previous()); }

void LogList::Found(std::optional<std::uint64_t> line) {
  if (line) {
    place_.GoToFound(*line);
    const std::size_t at = FindNoCase(FromWx(ShownLine(*line)), search_.What());
    if (at != std::string::npos) ScrollSideways(static_cast<int>(at));
  }
  Moved();
}

// Shows that character, if it is not shown.
void LogList::ScrollSideways(int character) {
  const int room = std::max(1, GetClientSize().x / GetCharWidth() - 1);
  const int end = character + static_cast<int>(search_.What().size());
  if (character < left_ || end > left_ + room) left_ = end > room ? std::max(0, end - room / 2) : 0;
}

// --- What is shown ---

wxString LogList::ShownLine(std::uint64_t number) const {
  const std::size_t longest = kShownCharacters + (times_ ? TimeBefore({1}).size() : 0);
  return ToWx(Shortened(LogLine(log_, number, times_), longest));
}

std::string LogList::CurrentLine() const { return LogLine(log_, place_.Cursor(), false); }

void LogList::ToEnd() {
  place_.ToEnd();
  Moved();
}

void LogList::MarkAll() {
  place_.MarkAll();
  Moved();
}

void LogList::Moved() {
  ShowScrollbars();
  if (HasFocus()) SetAccessibleCell(*this, ShownLine(place_.Cursor()), true);
  Refresh();
  Changed();
}

void LogList::ShowScrollbars() {
  const auto set = [this](int orientation, int position, int thumb, int range) {
    if (GetScrollPos(orientation) == position && GetScrollThumb(orientation) == thumb &&
        GetScrollRange(orientation) == range)
      return;
    SetScrollbar(orientation, position, thumb, range);
  };
  set(wxVERTICAL, static_cast<int>(place_.Top() - log_.First()), static_cast<int>(place_.Page()),
      static_cast<int>(log_.End() - log_.First()));
  const int columns = widest_ + (times_ ? static_cast<int>(TimeBefore({1}).size()) : 0) + 1;
  const int room = std::max(1, (GetClientSize().x - 2 * kPadding) / GetCharWidth());
  left_ = std::clamp(left_, 0, std::max(0, columns - room));
  set(wxHORIZONTAL, left_, std::min(room, columns), columns);
}

void LogList::OnPaint(wxPaintEvent& /*event*/) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(System(wxSYS_COLOUR_LISTBOX));
  dc.Clear();
  dc.SetFont(GetFont());
  dc.SetPen(*wxTRANSPARENT_PEN);
  wxRect row(0, 0, GetClientSize().x, RowHeight());
  for (std::uint64_t line = place_.Top(); line < log_.End() && row.y < GetClientSize().y; ++line) {
    DrawLine(dc, line, row);
    row.y += row.height;
  }
}

void LogList::DrawLine(wxDC& dc, std::uint64_t number, const wxRect& row) const {
  const auto room = static_cast<std::size_t>(row.width / GetCharWidth()) + 1;
  const wxString line = ShownLine(number).Mid(static_cast<std::size_t>(left_), room);
  const bool marked = place_.IsMarked(number);
  const bool strong = marked && HasFocus();
  const wxColour highlight = System(wxSYS_COLOUR_HIGHLIGHT);
  if (marked) {
    dc.SetBrush(strong ? highlight : Pale(highlight, System(wxSYS_COLOUR_LISTBOX)));
    dc.DrawRectangle(row);
  }
  dc.SetTextForeground(System(strong ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_LISTBOXTEXT));
  dc.DrawText(line, kPadding, row.y);
  if (search_.Active()) DrawHits(dc, line, row);
}

void LogList::DrawHits(wxDC& dc, const wxString& line, const wxRect& row) const {
  const std::string bytes = FromWx(line);
  const std::string& what = search_.What();
  dc.SetBrush(kHit);
  dc.SetTextForeground(*wxBLACK);
  for (std::size_t at = FindNoCase(bytes, what); at != std::string::npos;
       at = FindNoCase(bytes, what, at + what.size())) {
    const int from = kPadding + static_cast<int>(at) * GetCharWidth();
    dc.DrawRectangle(from, row.y, static_cast<int>(what.size()) * GetCharWidth(), row.height);
    dc.DrawText(line.Mid(at, what.size()), from, row.y);
  }
}

int LogList::RowHeight() const { return std::max(1, GetCharHeight()); }

// --- Scrolling ---

void LogList::OnScroll(wxScrollWinEvent& event) {
  const wxEventType type = event.GetEventType();
  const bool vertical = event.GetOrientation() == wxVERTICAL;
  const int page = vertical ? static_cast<int>(place_.Page()) : GetScrollThumb(wxHORIZONTAL);
  const int range = GetScrollRange(event.GetOrientation());
  int position = vertical ? static_cast<int>(place_.Top() - log_.First()) : left_;
  if (type == wxEVT_SCROLLWIN_TOP) position = 0;
  if (type == wxEVT_SCROLLWIN_BOTTOM) position = range;
  if (type == wxEVT_SCROLLWIN_LINEUP) --position;
  if (type == wxEVT_SCROLLWIN_LINEDOWN) ++position;
  if (type == wxEVT_SCROLLWIN_PAGEUP) position -= page;
  if (type == wxEVT_SCROLLWIN_PAGEDOWN) position += page;
  if (type == wxEVT_SCROLLWIN_THUMBTRACK) position = event.GetPosition();
  if (vertical) {
    place_.ScrollTo(static_cast<std::int64_t>(log_.First()) + position);
  } else {
    left_ = position;
  }
  Moved();
}

void LogList::OnWheel(wxMouseEvent& event) {
  wheel_ += event.GetWheelRotation() * event.GetLinesPerAction();
  const int lines = wheel_ / event.GetWheelDelta();
  wheel_ -= lines * event.GetWheelDelta();
  if (event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL || event.ShiftDown()) {
    left_ += event.ShiftDown() ? -lines : lines;
  } else {
    place_.ScrollBy(-lines);
  }
  Moved();
}

// --- Mouse ---

std::int64_t LogList::LineAt(const wxPoint& place) const {
  const int row = place.y < 0 ? -1 : place.y / RowHeight();
  return static_cast<std::int64_t>(place_.Top()) + row;
}

void LogList::OnPress(wxMouseEvent& event) {
  SetFocus();
  const std::int64_t line = LineAt(event.GetPosition());
  if (line < 0 || line >= static_cast<std::int64_t>(log_.End())) return;
  if (event.ShiftDown()) {
    place_.GoTo(line, true);
  } else {
    place_.Click(static_cast<std::uint64_t>(line));
    // New lines may come before the button is released.
    press_ = Press{line, event.ControlDown() ? "" : CurrentLine()};
    if (!HasCapture()) CaptureMouse();
  }
  Moved();
}

void LogList::OnDrag(wxMouseEvent& event) {
  const std::int64_t line = LineAt(event.GetPosition());
  if (!press_ || (line == press_->line && !press_->dragged)) return;
  if (!press_->dragged) place_.GoTo(press_->line, false);
  press_->dragged = true;
  place_.GoTo(line, true);
  Moved();
}

void LogList::OnRelease(wxMouseEvent& /*event*/) {
  if (HasCapture()) ReleaseMouse();
  const std::optional<Press> press = std::exchange(press_, std::nullopt);
  // Deferred: a handler of the mouse must not move the focus.
  if (press && !press->dragged && !press->chosen.empty())
    CallAfter([this, line = press->chosen] { Chosen(line); });
}

void LogList::OnMenu() {
  const wxWeakRef<LogList> alive(this);
  wxMenu menu;
  const int copy = menu.Append(wxID_COPY, ToWx(texts_.Text(text::kLogCopy)) + "\tCtrl+C")->GetId();
  const int all =
      menu.Append(wxID_SELECTALL, ToWx(texts_.Text(text::kLogMarkAll)) + "\tCtrl+A")->GetId();
  const int chosen = GetPopupMenuSelectionFromUser(menu);
  if (!alive) return;
  if (chosen == copy) Copy();
  if (chosen == all) MarkAll();
}

void LogList::Copy() {
  const auto [first, end] = place_.Marked();
  if (first == end) return;
#ifdef _WIN32
  constexpr const char* lineEnd = "\r\n";
#else
  constexpr const char* lineEnd = "\n";
#endif
  if (!WriteClipboard(LogText(log_, first, end, times_, lineEnd))) wxBell();
}

// --- Keyboard ---

void LogList::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const int modifiers = event.GetModifiers();
  const bool control = modifiers == wxMOD_CONTROL;
  if (key == WXK_TAB) {
    Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                               : wxNavigationKeyEvent::IsForward);
  } else if (control && (key == 'C' || key == WXK_INSERT)) {
    Copy();
  } else if (control && key == 'A') {
    MarkAll();
  } else if (modifiers == wxMOD_NONE && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)) {
    if (log_.End() > log_.First()) Chosen(CurrentLine());
  } else if ((modifiers & ~(wxMOD_SHIFT | wxMOD_CONTROL)) != 0 || !Move(key, event.ShiftDown())) {
    event.Skip();
  }
}

bool LogList::Move(int key, bool extend) {
  const auto page = static_cast<std::int64_t>(place_.Page());
  switch (key) {
    case WXK_UP:
    case WXK_NUMPAD_UP:
      place_.GoBy(-1, extend);
      break;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
      place_.GoBy(1, extend);
      break;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP:
      place_.GoBy(-page, extend);
      break;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN:
      place_.GoBy(page, extend);
      break;
    case WXK_HOME:
    case WXK_NUMPAD_HOME:
      place_.GoTo(static_cast<std::int64_t>(log_.First()), extend);
      break;
    case WXK_END:
    case WXK_NUMPAD_END:
      place_.GoTo(static_cast<std::int64_t>(log_.End()), extend);
      break;
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT:
      --left_;
      break;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT:
      ++left_;
      break;
    default:
      return false;
  }
  Moved();
  return true;
}

}  // namespace zek
