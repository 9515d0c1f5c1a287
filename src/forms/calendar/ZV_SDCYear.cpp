#include "forms/calendar/ZV_SDCYear.h"

#include <array>
#include <utility>

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include "editors/CalendarColours.h"
#include "editors/TypeColours.h"
#include "formats/CalendarNames.h"
#include "forms/calendar/ZV_SDCDays.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kColumns = 4;  // of months
constexpr int kMonthRowsShown = kMonthsOfYear / kColumns;
constexpr int kRows = kMonthRows + 1;  // row 0 has the month's name
constexpr int kGap = 6;                // around a month
constexpr int kPadding = 2;
constexpr int kFrame = 2;

wxColour System(wxSystemColour colour) { return wxSystemSettings::GetColour(colour); }
Rgb ToRgb(const wxColour& colour) { return {colour.Red(), colour.Green(), colour.Blue()}; }
wxColour ToColour(const Rgb& colour) { return {colour.red, colour.green, colour.blue}; }

}  // namespace

// The system's colours, read anew for every painting.
struct YearGrid::Colours {
  Rgb background = ToRgb(System(wxSYS_COLOUR_WINDOW));
  Rgb text = ToRgb(System(wxSYS_COLOUR_WINDOWTEXT));
  CalendarColours days = ColoursOn(background, text, ToRgb(System(wxSYS_COLOUR_HIGHLIGHT)));
};

YearGrid::YearGrid(wxWindow* parent, CalendarEditor& editor, const LanguageTexts& texts,
                   std::function<void()> moved, std::function<void()> chosen)
    : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                wxBORDER_NONE | wxFULL_REPAINT_ON_RESIZE),
      editor_(editor),
      texts_(texts),
      moved_(std::move(moved)),
      chosen_(std::move(chosen)) {
  SetName("Picture_Year");
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  SetFont(FixedFont().Smaller());
  SetInitialSize();
  Bind(wxEVT_PAINT, &YearGrid::OnPaint, this);
  // Not the style wxWANTS_CHARS, with which Windows keeps Alt and a letter from the buttons.
  Bind(wxEVT_CHAR_HOOK, &YearGrid::OnKey, this);
  Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
    SetFocus();
    const auto date = DateUnder(event.GetPosition());
    if (!date) return;
    editor_.ShowDate(*date);
    chosen_();
  });
  const auto again = [this](auto& event) {
    Refresh();
    event.Skip();
  };
  Bind(wxEVT_SET_FOCUS, [again](wxFocusEvent& event) { again(event); });
  Bind(wxEVT_KILL_FOCUS, [again](wxFocusEvent& event) { again(event); });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [again](wxSysColourChangedEvent& event) { again(event); });
  Bind(wxEVT_DPI_CHANGED, [this, again](wxDPIChangedEvent& event) {
    InvalidateBestSize();
    again(event);
  });
}

void YearGrid::ShowDays() {
  const int day = editor_.Cursor();
  SetAccessibleCell(*this, ToWx(editor_.CellName(day, texts_)), editor_.Cell(day, texts_).selected);
  Refresh();
}

// --- Places ---

wxSize YearGrid::DoGetBestClientSize() const {
  const wxSize cell = GetTextExtent("00A") + wxSize(2 * FromDIP(kPadding), FromDIP(kPadding));
  const int gap = FromDIP(kGap);
  return {kColumns * (kDaysOfWeek * cell.x + 2 * gap),
          kMonthRowsShown * (kRows * cell.y + gap) + cell.y};
}

// The months divide the control evenly; the lowest row has the legend.
wxRect YearGrid::MonthAt(int month) const {
  const int gap = FromDIP(kGap);
  const wxSize whole = GetClientSize();
  const wxSize each(whole.x / kColumns, (whole.y - GetCharHeight()) / kMonthRowsShown);
  return {month % kColumns * each.x + gap, month / kColumns * each.y, each.x - 2 * gap,
          each.y - gap};
}

int YearGrid::DaysOf(int month) const { return MonthLength(DateOf(month, 1).year, month); }

CalendarDate YearGrid::DateOf(int month, int day) const {
  return {editor_.Table().BaseYear() + editor_.Year(), month, day};
}

wxRect YearGrid::CellOf(int month, int day) const {
  const wxRect whole = MonthAt(month);
  const int place = CalendarEditor::ColumnOf(DateOf(month, 1)) + day - 1;
  const int column = place % kDaysOfWeek;
  const int row = 1 + place / kDaysOfWeek;
  const wxPoint from(whole.x + whole.width * column / kDaysOfWeek,
                     whole.y + whole.height * row / kRows);
  const wxPoint to(whole.x + whole.width * (column + 1) / kDaysOfWeek,
                   whole.y + whole.height * (row + 1) / kRows);
  return {from, wxSize(to.x - from.x, to.y - from.y)};
}

std::optional<CalendarDate> YearGrid::DateUnder(const wxPoint& point) const {
  for (int month = 0; month < kMonthsOfYear; ++month) {
    for (int day = 1; day <= DaysOf(month); ++day)
      if (CellOf(month, day).Contains(point)) return DateOf(month, day);
  }
  return std::nullopt;
}

// --- Drawing ---

void YearGrid::OnPaint(wxPaintEvent& /*event*/) {
  wxAutoBufferedPaintDC dc(this);
  const Colours colours;
  dc.SetBackground(ToColour(colours.background));
  dc.Clear();
  for (int month = 0; month < kMonthsOfYear; ++month) DrawMonth(dc, month, colours);
  DrawLegend(dc, colours);
}

void YearGrid::DrawMonth(wxDC& dc, int month, const Colours& colours) const {
  wxRect heading = MonthAt(month);
  heading.height /= kRows;
  dc.SetFont(GetFont().Bold());
  dc.SetTextForeground(ToColour(colours.text));
  dc.DrawLabel(ToWx(texts_.Text(text::kMonthNamesShown + month)), heading, wxALIGN_CENTER_VERTICAL);
  for (int day = 1; day <= DaysOf(month); ++day) DrawDay(dc, DateOf(month, day), colours);
}

// Colour is never the only sign: a type has a letter, free days are bold and holidays underlined.
void YearGrid::DrawDay(wxDC& dc, const CalendarDate& date, const Colours& colours) const {
  const CalendarCell cell = editor_.CellOn(date, texts_);
  const int type = editor_.Table().TypeOn(date);
  const wxRect place = CellOf(date.month, date.day);
  const bool plain = type == kNoDayType;
  if (!plain) {
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(ToColour(TypeGround(type, colours.background, colours.text)));
    dc.DrawRectangle(wxRect(place).Deflate(1));
  }
  dc.SetFont(cell.free ? GetFont().Bold() : GetFont());
  const wxColour ink = ToColour(cell.free && plain ? colours.days.freeOfYear : colours.text);
  dc.SetTextForeground(ink);
  wxString said = (cell.number.size() == 1 ? " " : "") + cell.number;
  if (!plain) said += TypeLetter(type);
  const wxRect inner = wxRect(place).Deflate(FromDIP(kPadding), 0);
  dc.DrawLabel(said, inner, wxALIGN_CENTER_VERTICAL);
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  if (cell.holiday) {
    dc.SetPen(wxPen(ink, FromDIP(1)));
    dc.DrawLine(inner.GetBottomLeft(), inner.GetBottomRight());
  }
  if (cell.today) {
    dc.SetPen(ToColour(colours.text));
    dc.DrawRectangle(place);
  }
  if (date == editor_.DateOf(editor_.Cursor()) && HasFocus()) {
    const int width = FromDIP(kFrame);
    dc.SetPen(wxPen(ToColour(colours.days.cursor), width));
    dc.DrawRectangle(wxRect(place).Inflate(width / 2));
  }
}

// "A = SD1 Jullov", of the types that the year has.
void YearGrid::DrawLegend(wxDC& dc, const Colours& colours) const {
  std::array<bool, kCalendarDayTypes + 1> used{};
  for (int month = 0; month < kMonthsOfYear; ++month) {
    for (int day = 1; day <= DaysOf(month); ++day)
      used.at(static_cast<std::size_t>(editor_.Table().TypeOn(DateOf(month, day)))) = true;
  }
  const int gap = FromDIP(kGap);
  const int top = GetClientSize().y - GetCharHeight();
  int left = gap;
  dc.SetFont(GetFont());
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetTextForeground(ToColour(colours.text));
  for (int type = 1; type <= kCalendarDayTypes; ++type) {
    if (!used.at(static_cast<std::size_t>(type))) continue;
    const wxString said =
        wxString(TypeLetter(type)) + " = " + ToWx(editor_.TypeCaption(type, texts_));
    const wxSize size = dc.GetTextExtent(said) + wxSize(2 * gap, 0);
    dc.SetBrush(ToColour(TypeGround(type, colours.background, colours.text)));
    dc.DrawRectangle(left, top, size.x, GetCharHeight());
    dc.DrawText(said, left + gap, top);
    left += size.x + gap;
  }
}

// --- Keyboard ---

void YearGrid::OnKey(wxKeyEvent& event) {
  const int key = PlainKey(event.GetKeyCode());
  const bool control = event.GetModifiers() == wxMOD_CONTROL;
  if (key == WXK_TAB) {
    Navigate(wxNavigationKeyEvent::FromTab | (event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                                                : wxNavigationKeyEvent::IsForward));
  } else if ((event.HasAnyModifiers() && !control) || !TakeKey(key, control)) {
    event.Skip();
  }
}

bool YearGrid::TakeKey(int key, bool control) {
  const bool up = key == WXK_PAGEUP;
  const auto move = MoveOfKey(key);
  if (up || key == WXK_PAGEDOWN) {
    const int months = control ? kMonthsOfYear : 1;
    editor_.Step(up ? -months : months);
  } else if (!control && move) {
    editor_.MoveCursor(*move, false);
  } else if (!control && (key == WXK_RETURN || key == WXK_SPACE)) {
    chosen_();
    return true;
  } else {
    return false;
  }
  moved_();
  return true;
}

}  // namespace zek
