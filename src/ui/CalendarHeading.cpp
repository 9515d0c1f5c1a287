#include "ui/CalendarHeading.h"

#include <array>

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include "formats/CalendarNames.h"
#include "lang/TextNumbers.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kArrowRoom = 24;  // in which a click turns the page
constexpr int kArrow = 4;
constexpr std::size_t kLettersOfDay = 2;

wxDateTime DayAt(wxCalendarCtrlBase& calendar, int x, int y) {
  wxDateTime day;
  const wxCalendarHitTestResult hit = calendar.HitTest({x, y}, &day);
  return hit == wxCAL_HITTEST_DAY || hit == wxCAL_HITTEST_SURROUNDING_WEEK ? day : wxDateTime();
}

}  // namespace

CalendarHeading::CalendarHeading(wxCalendarCtrlBase& calendar, const LanguageTexts& texts)
    : calendar_(calendar), texts_(texts) {
  SetBackgroundStyle(wxBG_STYLE_PAINT);
  const wxSize whole = calendar.GetBestSize();
  calendar.SetSize(whole);
  int height = 0;
  while (height < whole.y && !DayAt(calendar, whole.x / 2, height).IsValid()) ++height;
  std::array<int, 7> first{};
  for (int x = whole.x - 1; x >= 0; --x) {
    const wxDateTime day = DayAt(calendar, x, height);
    if (!day.IsValid()) continue;
    const auto column = static_cast<std::size_t>((day.GetWeekDay() + 6) % 7);
    if (first.at(column) == 0) first.at(column) = x;
    columns_.at(column) = (first.at(column) + x) / 2;
  }
  Create(&calendar, wxID_ANY, {0, 0}, {whole.x, height}, wxBORDER_NONE);
  Bind(wxEVT_PAINT, &CalendarHeading::OnPaint, this);
  Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
    const int room = FromDIP(kArrowRoom);
    const bool back = event.GetX() < room;
    if (!back && event.GetX() < GetSize().x - room) return;
    calendar_.SetDate(calendar_.GetDate() + wxDateSpan::Months(back ? -1 : 1));
    Refresh();
  });
}

void CalendarHeading::OnPaint(wxPaintEvent& /*event*/) {
  const auto system = [](wxSystemColour colour) { return wxSystemSettings::GetColour(colour); };
  wxAutoBufferedPaintDC dc(this);
  dc.SetBackground(system(wxSYS_COLOUR_WINDOW));
  dc.Clear();
  dc.SetFont(calendar_.GetFont());
  dc.SetTextForeground(system(wxSYS_COLOUR_WINDOWTEXT));
  const wxSize size = GetSize();
  const wxDateTime shown = calendar_.GetDate();
  const std::string month = MonthName({shown.GetYear(), shown.GetMonth(), 1}, texts_);
  dc.DrawLabel(ToWx(month), wxRect(0, 0, size.x, size.y / 2), wxALIGN_CENTER);
  DrawArrow(dc, FromDIP(kArrowRoom) / 2, -1);
  DrawArrow(dc, size.x - FromDIP(kArrowRoom) / 2, 1);
  dc.SetTextForeground(system(wxSYS_COLOUR_GRAYTEXT));
  for (std::size_t day = 0; day < columns_.size(); ++day) {
    const wxString name =
        ToWx(texts_.Text(text::kWeekdayNames + static_cast<int>(day))).Left(kLettersOfDay);
    const int width = dc.GetTextExtent(name).x;
    dc.DrawLabel(name, wxRect(columns_.at(day) - width / 2, size.y / 2, width, size.y / 2),
                 wxALIGN_CENTER);
  }
}

void CalendarHeading::DrawArrow(wxDC& dc, int at, int direction) const {
  const int half = FromDIP(kArrow);
  const int middle = GetSize().y / 4;
  const std::array<wxPoint, 3> corners{wxPoint(at - direction * half / 2, middle - half),
                                       wxPoint(at - direction * half / 2, middle + half),
                                       wxPoint(at + direction * half, middle)};
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.SetBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  dc.DrawPolygon(static_cast<int>(corners.size()), corners.data());
}

}  // namespace zek
