#include "forms/calendar/ZV_SDCDays.h"

#include <algorithm>
#include <utility>

#include <wx/dcbuffer.h>
#include <wx/settings.h>
#include <wx/weakref.h>

#include "editors/CalendarColours.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {

wxDEFINE_EVENT(EVT_TYPE_MISSING, wxCommandEvent);

// The system's colours and those derived from them, read anew for every painting of the grid.
struct DayColours {
  wxColour text;
  wxColour line;
  wxColour cursor;
  wxColour free;
  wxColour selected;
  wxColour selectedBackground;
};

namespace {

constexpr int kPadding = 6;  // at each side of a cell's text
constexpr int kRowPadding = 4;
constexpr int kFrame = 2;
constexpr int kTodayInset = 3;
constexpr int kRows = kMonthRows + 1;  // row 0 has the headings
constexpr int kTurnMs = 800;           // beyond an edge until the page turns

wxColour System(wxSystemColour colour) { return wxSystemSettings::GetColour(colour); }

Rgb ToRgb(const wxColour& colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }
wxColour ToColour(const Rgb& colour) { return {colour.red, colour.green, colour.blue}; }

// -1 above or at the left of a place, 1 below or at its right, 0 inside.
int SideOf(const wxPoint& point, const wxRect& place) {
  if (place.Contains(point)) return 0;
  if (point.y < place.GetTop()) return -1;
  return point.y > place.GetBottom() || point.x > place.GetRight() ? 1 : -1;
}

DayColours ColoursNow() {
  const CalendarColours colours =
      ColoursOn(ToRgb(System(wxSYS_COLOUR_WINDOW)), ToRgb(System(wxSYS_COLOUR_WINDOWTEXT)),
                ToRgb(System(wxSYS_COLOUR_HIGHLIGHT)));
  return {System(wxSYS_COLOUR_WINDOWTEXT), System(wxSYS_COLOUR_GRAYTEXT),
          ToColour(colours.cursor),        ToColour(colours.free),
          ToColour(colours.selected),      ToColour(colours.selectedBackground)};
}

}  // namespace

int PlainKey(int key) {
  constexpr auto pairs = std::to_array<std::pair<int, int>>({{WXK_NUMPAD_LEFT, WXK_LEFT},
                                                             {WXK_NUMPAD_RIGHT, WXK_RIGHT},
                                                             {WXK_NUMPAD_UP, WXK_UP},
                                                             {WXK_NUMPAD_DOWN, WXK_DOWN},
                                                             {WXK_NUMPAD_HOME, WXK_HOME},
                                                             {WXK_NUMPAD_END, WXK_END},
                                                             {WXK_NUMPAD_PAGEUP, WXK_PAGEUP},
                                                             {WXK_NUMPAD_PAGEDOWN, WXK_PAGEDOWN},
                                                             {WXK_NUMPAD_ENTER, WXK_RETURN},
                                                             {WXK_NUMPAD_SPACE, WXK_SPACE}});
  if (key >= WXK_NUMPAD0 && key <= WXK_NUMPAD9) return '0' + key - WXK_NUMPAD0;
  const auto* const found = std::find_if(pairs.begin(), pairs.end(),
                                         [key](const auto& pair) { return pair.first == key; });
  return found == pairs.end() ? key : found->second;
}

std::optional<CalendarMove> MoveOfKey(int key) {
  constexpr auto moves = std::to_array<std::pair<int, CalendarMove>>({
      {WXK_LEFT, CalendarMove::Left},
      {WXK_RIGHT, CalendarMove::Right},
      {WXK_UP, CalendarMove::Up},
      {WXK_DOWN, CalendarMove::Down},
      {WXK_HOME, CalendarMove::Home},
      {WXK_END, CalendarMove::End},
  });
  const auto* const found = std::find_if(moves.begin(), moves.end(),
                                         [key](const auto& move) { return move.first == key; });
  return found == moves.end() ? std::nullopt : std::optional(found->second);
}

DayGrid::DayGrid(wxWindow* parent, CalendarEditor& editor, const LanguageTexts& texts,
                 Prompts& prompts, std::function<void()> changed)
    : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      editor_(editor),
      texts_(texts),
      prompts_(prompts),
      changed_(std::move(changed)),
      turn_([this] { OnTurn(); }) {
  SetName("Picture_Days");
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetFont(FixedFont());
  SetInitialSize();
  BindEvents();
}

void DayGrid::BindEvents() {
  Bind(wxEVT_PAINT, &DayGrid::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &DayGrid::OnPress, this);
  Bind(wxEVT_LEFT_DCLICK, &DayGrid::OnPress, this);
  Bind(wxEVT_MOTION, &DayGrid::OnMotion, this);
  Bind(wxEVT_LEFT_UP, &DayGrid::OnRelease, this);
  Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { StopDrag(); });
  // Not the style wxWANTS_CHARS, with which Windows keeps Alt and a letter from the buttons.
  Bind(wxEVT_CHAR_HOOK, &DayGrid::OnKey, this);
  // While the mouse is captured, some systems send only this.
  Bind(wxEVT_KEY_DOWN,
       [this](wxKeyEvent& event) { event.Skip(event.GetKeyCode() != WXK_ESCAPE || !StopDrag()); });
  const auto onFocus = [this](wxFocusEvent& event) {
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_SET_FOCUS, onFocus);
  Bind(wxEVT_KILL_FOCUS, onFocus);
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    Refresh();
    event.Skip();
  });
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    InvalidateBestSize();
    Refresh();
    event.Skip();
  });
}

void DayGrid::ShowDays() {
  const int day = editor_.Cursor();
  SetAccessibleCell(*this, ToWx(editor_.CellName(day, texts_)), editor_.Cell(day, texts_).selected);
  Refresh();
}

// --- Drawing ---

wxSize DayGrid::DoGetBestClientSize() const {
  wxSize cell = GetTextExtent("00 SD0 ");
  for (int column = 0; column < kDaysOfWeek; ++column)
    cell.IncTo(GetTextExtent(ToWx(texts_.Text(text::kWeekdayNames + column))));
  return {kDaysOfWeek * (cell.x + 2 * FromDIP(kPadding)),
          kRows * (cell.y + 2 * FromDIP(kRowPadding))};
}

// Row 0 has the headings. The cells divide the whole control evenly.
wxRect DayGrid::CellAt(int row, int column) const {
  const wxSize whole = GetClientSize();
  const auto edge = [](int length, int at, int parts) { return length * at / parts; };
  const wxPoint from(edge(whole.x, column, kDaysOfWeek), edge(whole.y, row, kRows));
  const wxPoint to(edge(whole.x, column + 1, kDaysOfWeek), edge(whole.y, row + 1, kRows));
  return {from, wxSize(to.x - from.x, to.y - from.y)};
}

std::optional<int> DayGrid::DayUnder(const wxPoint& point) const {
  for (int row = 0; row < kMonthRows; ++row) {
    for (int column = 0; column < kDaysOfWeek; ++column)
      if (CellAt(row + 1, column).Contains(point)) return editor_.DayAt(row, column);
  }
  return std::nullopt;
}

void DayGrid::OnPaint(wxPaintEvent& /*event*/) {
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(System(wxSYS_COLOUR_WINDOW));
  dc.Clear();
  const DayColours colours = ColoursNow();
  DrawHeadings(dc);
  for (int row = 0; row < kMonthRows; ++row) {
    for (int column = 0; column < kDaysOfWeek; ++column) {
      if (const auto day = editor_.DayAt(row, column))
        DrawDay(dc, CellAt(row + 1, column), *day, colours);
    }
  }
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.SetPen(colours.line);
  dc.DrawRectangle(GetClientRect());
}

// All names are short where one would be cut.
int DayGrid::HeadingTexts() const {
  for (int column = 0; column < kDaysOfWeek; ++column) {
    const int name = GetTextExtent(ToWx(texts_.Text(text::kWeekdayNames + column))).x;
    if (name > CellAt(0, column).width - 2 * FromDIP(kPadding)) return text::kMonday;
  }
  return text::kWeekdayNames;
}

void DayGrid::DrawHeadings(wxDC& dc) const {
  dc.SetFont(GetFont());
  dc.SetTextForeground(System(wxSYS_COLOUR_BTNTEXT));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(System(wxSYS_COLOUR_BTNFACE));
  const int names = HeadingTexts();
  for (int column = 0; column < kDaysOfWeek; ++column) {
    const wxRect place = CellAt(0, column);
    dc.DrawRectangle(place);
    dc.DrawLabel(ToWx(texts_.Text(names + column)), wxRect(place).Deflate(FromDIP(kPadding), 0),
                 wxALIGN_CENTER_VERTICAL);
  }
}

// Colour is never the only sign: selected days have a frame and free days are bold. Today has a
// frame inside its cell, the cursor a thick one.
void DayGrid::DrawDay(wxDC& dc, const wxRect& place, int day, const DayColours& colours) const {
  const CalendarCell cell = editor_.Cell(day, texts_);
  if (cell.selected) {
    dc.SetPen(colours.selected);
    dc.SetBrush(colours.selectedBackground);
    dc.DrawRectangle(wxRect(place).Deflate(1));
  }
  dc.SetFont(cell.free ? GetFont().Bold() : GetFont());
  const DayColour colour = cell.Colour();
  dc.SetTextForeground(colour == DayColour::Selected ? colours.selected
                       : colour == DayColour::Free   ? colours.free
                                                     : colours.text);
  const wxString number = ToWx(cell.number.size() == 1 ? " " + cell.number : cell.number);
  dc.DrawLabel(number + " " + ToWx(cell.type), wxRect(place).Deflate(FromDIP(kPadding), 0),
               wxALIGN_CENTER_VERTICAL);
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  if (cell.today) {
    dc.SetPen(colours.text);
    dc.DrawRectangle(wxRect(place).Deflate(FromDIP(kTodayInset)));
  }
  if (day == editor_.Cursor() && HasFocus()) {
    const int width = FromDIP(kFrame);
    dc.SetPen(wxPen(colours.cursor, width));
    dc.DrawRectangle(wxRect(place).Deflate(width / 2));
  }
}

// --- Mouse ---

void DayGrid::OnPress(wxMouseEvent& event) {
  SetFocus();
  editor_.Press(DayUnder(event.GetPosition()));
  if (editor_.Dragging() && !HasCapture()) CaptureMouse();
  ShowDays();
  TellMissing();
}

// A box that opened meanwhile may have taken the release.
void DayGrid::OnMotion(wxMouseEvent& event) {
  if (!editor_.Dragging()) return;
  if (!event.LeftIsDown()) return static_cast<void>(StopDrag());
  editor_.Drag(DayUnder(event.GetPosition()));
  const int beyond = SideOf(event.GetPosition(), GetClientRect());
  if (beyond == 0) turn_.Stop();
  if (beyond != 0 && beyond != beyond_) turn_.Begin(kTurnMs);
  beyond_ = beyond;
  ShowDays();
}

void DayGrid::OnTurn() {
  if (!editor_.Dragging() || beyond_ == 0) return turn_.Stop();
  if (!HasCapture() || !IsEnabled()) return static_cast<void>(StopDrag());
  editor_.DragOn(beyond_);
  changed_();
}

bool DayGrid::StopDrag() {
  if (!editor_.Dragging()) return false;
  EndCapture();
  editor_.CancelDrag();
  changed_();
  return true;
}

void DayGrid::EndCapture() {
  if (HasCapture()) ReleaseMouse();
  turn_.Stop();
  beyond_ = 0;
}

void DayGrid::OnRelease(wxMouseEvent& event) {
  EndCapture();
  if (!editor_.Dragging()) return;
  // A message runs the event loop, and the form may be destroyed meanwhile.
  const wxWeakRef<DayGrid> alive(this);
  editor_.Release(DayUnder(event.GetPosition()), prompts_, texts_);
  if (alive) changed_();
}

// --- Keyboard ---

void DayGrid::OnKey(wxKeyEvent& event) {
  const int key = PlainKey(event.GetKeyCode());
  if (key == WXK_TAB) {
    // `FromTab` makes the focus enter a group at its chosen option.
    Navigate(wxNavigationKeyEvent::FromTab | (event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                                                : wxNavigationKeyEvent::IsForward));
  } else if (!TakeKey(key, event.GetModifiers())) {
    event.Skip();
  }
}

bool DayGrid::TakeKey(int key, int modifiers) {
  const bool shift = modifiers == wxMOD_SHIFT;
  const bool control = modifiers == wxMOD_CONTROL;
  if (editor_.Dragging() && key != WXK_ESCAPE) return true;  // the mouse has the days
  if (modifiers != wxMOD_NONE && !shift && !control) return false;
  if (!shift && TakeStep(key, control)) return true;
  if (control) return false;
  if (TakeMove(key, shift)) return true;
  if (shift) return false;
  if (key == WXK_RETURN || key == WXK_SPACE) {
    Apply();
    return true;
  }
  if (key == WXK_ESCAPE) return StopDrag();
  return TakeDigit(key);
}

bool DayGrid::TakeMove(int key, bool extend) {
  const auto move = MoveOfKey(key);
  if (!move) return false;
  editor_.MoveCursor(*move, extend);
  changed_();
  return true;
}

bool DayGrid::TakeStep(int key, bool years) {
  if (key != WXK_PAGEUP && key != WXK_PAGEDOWN) return false;
  const int months = years ? kMonthsOfYear : 1;
  editor_.Step(key == WXK_PAGEUP ? -months : months);
  changed_();
  return true;
}

bool DayGrid::TakeDigit(int key) {
  if (key < '0' || key > '7' || editor_.ViewOnly()) return false;
  editor_.ChooseType(key == '0' ? int{kNoDayType} : kDaysOfWeek + key - '0');
  changed_();
  return true;
}

void DayGrid::Apply() {
  const wxWeakRef<DayGrid> alive(this);
  editor_.Apply(prompts_, texts_);
  if (!alive) return;
  changed_();
  TellMissing();
}

void DayGrid::TellMissing() {
  if (editor_.DayType() || editor_.ViewOnly()) return;
  wxCommandEvent event(EVT_TYPE_MISSING, GetId());
  ProcessWindowEvent(event);
}

}  // namespace zek
