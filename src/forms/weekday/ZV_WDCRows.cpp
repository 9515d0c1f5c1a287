#include "forms/weekday/ZV_WDCRows.h"

#include <algorithm>

#include <wx/dcclient.h>
#include <wx/settings.h>

namespace zek {
namespace {
constexpr int kPadding = 5;
constexpr int kGap = 3;
constexpr int kFrame = 2;
}  // namespace

RowStrip::RowStrip(wxWindow* parent, std::function<void(std::size_t)> choose)
    : wxControl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE),
      choose_(std::move(choose)) {
  SetName("RowStrip");
  SetInitialSize();
  Bind(wxEVT_PAINT, &RowStrip::OnPaint, this);
  Bind(wxEVT_LEFT_DOWN, &RowStrip::OnClick, this);
}

void RowStrip::ShowRows(const Used& used, std::size_t current) {
  if (used == used_ && current == current_) return;
  used_ = used;
  current_ = current;
  Refresh();
}

wxSize RowStrip::DoGetBestClientSize() const {
  const wxSize number = GetTextExtent("16");
  const int pad = 2 * FromDIP(kPadding);
  const int gap = FromDIP(kGap);
  return {static_cast<int>(kWeekdayRows) * (number.x + pad + gap) - gap, number.y + pad};
}

wxRect RowStrip::Cell(std::size_t row) const {
  const wxSize whole = GetBestSize();
  const int gap = FromDIP(kGap);
  const int step = (whole.x + gap) / static_cast<int>(kWeekdayRows);
  return {static_cast<int>(row) * step, 0, step - gap, whole.y};
}

void RowStrip::OnPaint(wxPaintEvent& /*event*/) {
  const auto system = [](wxSystemColour colour) { return wxSystemSettings::GetColour(colour); };
  wxPaintDC dc(this);
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    const wxRect cell = Cell(row);
    const bool used = used_.at(row);
    dc.SetBrush(system(used ? wxSYS_COLOUR_HIGHLIGHT : wxSYS_COLOUR_WINDOW));
    dc.SetPen(wxPen(system(wxSYS_COLOUR_GRAYTEXT)));
    dc.DrawRectangle(cell);
    if (row == current_) {
      dc.SetBrush(*wxTRANSPARENT_BRUSH);
      dc.SetPen(wxPen(system(used ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_WINDOWTEXT),
                      FromDIP(kFrame)));
      dc.DrawRectangle(wxRect(cell).Deflate(FromDIP(kFrame)));
    }
    dc.SetTextForeground(system(used ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_WINDOWTEXT));
    dc.DrawLabel(std::to_string(row + 1), cell, wxALIGN_CENTER);
  }
}

void RowStrip::OnClick(wxMouseEvent& event) {
  for (std::size_t row = 0; row < kWeekdayRows; ++row)
    if (Cell(row).Contains(event.GetPosition())) return choose_(row);
}

RowStrip::Used UsedRowsOf(const WeekdayTable& table, std::size_t type) {
  RowStrip::Used used{};
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    for (std::size_t column = 0; column < kDaysOfType; ++column)
      used.at(row) |= table.days.at(type * kDaysOfType + column).at(row).Used();
  }
  return used;
}

}  // namespace zek
