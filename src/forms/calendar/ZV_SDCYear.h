#pragma once

#include <functional>
#include <optional>

#include <wx/control.h>
#include <wx/dc.h>

#include "editors/CalendarEditor.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// `Picture_Year`: the twelve months of the editor's year. A day with a type has its colour and its
/// letter, which a line below explains; public holidays are underlined. A click or Enter chooses a
/// day; arrows, Home, End, PageUp and PageDown (with Ctrl for years) move the cursor.
class YearGrid final : public wxControl {
 public:
  /// `moved` is called when the cursor may have moved, `chosen` when its day is chosen.
  YearGrid(wxWindow* parent, CalendarEditor& editor, const LanguageTexts& texts,
           std::function<void()> moved, std::function<void()> chosen);

  /// Shows the editor's state.
  void ShowDays();

  /// The place of a day of the shown year; a month 0 to 11.
  wxRect CellOf(int month, int day) const;

 protected:
  wxSize DoGetBestClientSize() const override;

 private:
  struct Colours;

  wxRect MonthAt(int month) const;
  CalendarDate DateOf(int month, int day) const;
  std::optional<CalendarDate> DateUnder(const wxPoint& point) const;
  int DaysOf(int month) const;
  void OnPaint(wxPaintEvent& event);
  void DrawMonth(wxDC& dc, int month, const Colours& colours) const;
  void DrawDay(wxDC& dc, const CalendarDate& date, const Colours& colours) const;
  void DrawLegend(wxDC& dc, const Colours& colours) const;
  void OnKey(wxKeyEvent& event);
  bool TakeKey(int key, bool control);

  CalendarEditor& editor_;
  const LanguageTexts& texts_;
  std::function<void()> moved_;
  std::function<void()> chosen_;
};

}  // namespace zek
