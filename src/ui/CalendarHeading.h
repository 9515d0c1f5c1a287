#pragma once

#include <array>

#include <wx/calctrl.h>
#include <wx/window.h>

#include "lang/LanguageTexts.h"

namespace zek {

/// The month, arrows that turn the page, and the days of the week, above the days of a calendar. It
/// lies over the calendar's own heading, whose names follow the system instead of the program.
class CalendarHeading final : public wxWindow {
 public:
  CalendarHeading(wxCalendarCtrlBase& calendar, const LanguageTexts& texts);

  bool AcceptsFocus() const override { return false; }
  void SetFocus() override {}

 private:
  void OnPaint(wxPaintEvent& event);
  void DrawArrow(wxDC& dc, int at, int direction) const;

  wxCalendarCtrlBase& calendar_;
  const LanguageTexts& texts_;
  std::array<int, 7> columns_{};  // the middle of each day of the week
};

}  // namespace zek
