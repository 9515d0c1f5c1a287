#pragma once

#include <functional>
#include <optional>

#include <wx/control.h>
#include <wx/dc.h>

#include "editors/CalendarEditor.h"
#include "lang/LanguageTexts.h"
#include "wxbase/WxTurn.h"

namespace zek {

struct DayColours;

/// Sent by `DayGrid` when days can't be given a type, because none is chosen.
wxDECLARE_EVENT(EVT_TYPE_MISSING, wxCommandEvent);

/// Maps a key of the number pad to the same key of the main keyboard.
int PlainKey(int key);

/// Returns the move of an arrow, Home or End.
std::optional<CalendarMove> MoveOfKey(int key);

/// `Picture_Days`: the days of one month, in a column for each weekday. The user selects days by
/// mouse or keyboard and gives them the editor's day type. Held beyond an edge while it drags, the
/// mouse turns the page: above and at the left to the month before, else to the next.
///
/// Keys: arrows, Home and End move the cursor, with Shift they select. Enter or Space applies the
/// type. 0 chooses no day type, 1 to 7 choose SD1 to SD7. PageUp and PageDown change the month,
/// with Ctrl the year.
class DayGrid final : public wxControl {
 public:
  /// `changed` is called when the month shown, the chosen type or the calendar may have changed.
  DayGrid(wxWindow* parent, CalendarEditor& editor, const LanguageTexts& texts, Prompts& prompts,
          std::function<void()> changed);

  /// Shows the editor's state.
  void ShowDays();

 protected:
  wxSize DoGetBestClientSize() const override;

 private:
  void BindEvents();
  wxRect CellAt(int row, int column) const;
  std::optional<int> DayUnder(const wxPoint& point) const;
  void OnPaint(wxPaintEvent& event);
  int HeadingTexts() const;
  void DrawHeadings(wxDC& dc) const;
  void DrawDay(wxDC& dc, const wxRect& place, int day, const DayColours& colours) const;
  void OnPress(wxMouseEvent& event);
  void OnMotion(wxMouseEvent& event);
  void OnRelease(wxMouseEvent& event);
  bool StopDrag();
  void OnTurn();
  void EndCapture();
  void OnKey(wxKeyEvent& event);
  bool TakeKey(int key, int modifiers);
  bool TakeMove(int key, bool extend);
  bool TakeStep(int key, bool years);
  bool TakeDigit(int key);
  void Apply();
  void TellMissing();

  CalendarEditor& editor_;
  const LanguageTexts& texts_;
  Prompts& prompts_;
  std::function<void()> changed_;
  int beyond_ = 0;  // a mouse that drags is beyond an edge: -1 towards the month before, 1 the next
  WxTick turn_;
};

}  // namespace zek
