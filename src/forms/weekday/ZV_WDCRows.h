#pragma once

#include <array>
#include <cstddef>
#include <functional>

#include <wx/control.h>

#include "formats/WeekdayTable.h"

namespace zek {

/// The 16 rows as numbered cells: rows in use are filled, the current row has a frame, a click
/// chooses a row. For the mouse only; the keyboard has PageUp and PageDown.
class RowStrip final : public wxControl {
 public:
  using Used = std::array<bool, kWeekdayRows>;

  RowStrip(wxWindow* parent, std::function<void(std::size_t)> choose);

  void ShowRows(const Used& used, std::size_t current);

  bool AcceptsFocus() const override { return false; }

 protected:
  wxSize DoGetBestClientSize() const override;

 private:
  wxRect Cell(std::size_t row) const;
  void OnPaint(wxPaintEvent& event);
  void OnClick(wxMouseEvent& event);

  std::function<void(std::size_t)> choose_;
  Used used_{};
  std::size_t current_ = 0;
};

/// Which rows at least one of the seven days of `type` uses.
RowStrip::Used UsedRowsOf(const WeekdayTable& table, std::size_t type);

}  // namespace zek
