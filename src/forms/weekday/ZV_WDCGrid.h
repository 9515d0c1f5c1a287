#pragma once

#include <array>
#include <functional>
#include <optional>

#include <wx/gbsizer.h>
#include <wx/panel.h>
#include <wx/scrolbar.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "editors/PickList.h"
#include "editors/WeekdayEditor.h"
#include "forms/weekday/ZV_WDCRows.h"

namespace zek {

/// The grid of the weekday editor: one row of the catalogue, seven days side by side. It passes
/// entries on to the editor and shows what that makes of them.
class WeekdayGrid final : public wxPanel {
 public:
  /// `pickList` is offered on the value boxes. `changed` is called after every change of the table.
  WeekdayGrid(wxWindow* parent, WeekdayEditor& editor, const LanguageTexts& texts,
              PickList pickList, std::function<void()> changed);

  /// Shows the editor's type, row and focused column.
  void ShowCells();

  /// Takes what was typed into the focused box before something else is done with the row.
  void TakeEntry();

  /// True when the focused box holds something else than the table; what it held is shown again.
  bool HasEntry() const;
  void DropEntry();

  void GoToRow(std::size_t row);

  /// Puts the focus into a box, or into the start time of a column.
  void Focus(WeekdayFocus at);
  void FocusStart(std::size_t column) { Focus({WeekdayBox::Start, column}); }

  /// Enter, PageUp and PageDown; false for any other key.
  bool TakeKey(int key);

 private:
  static constexpr std::size_t kBoxes = 4;  // `WeekdayBox`

  void BuildBoxes();
  wxTextCtrl* NewBox(WeekdayFocus at);
  void LayOut();
  wxTextCtrl& Box(WeekdayFocus at) const;
  std::optional<WeekdayFocus> FocusedBox() const;
  std::string CellText(WeekdayFocus at) const;
  void TakeText(WeekdayFocus at);
  void Enter(WeekdayFocus at, const std::string& typed);
  void OnEntered(std::size_t column);
  void OnScroll(wxScrollEvent& event);
  void ShowHeaders();
  wxString DayName(std::size_t column) const;

  WeekdayEditor& editor_;
  const LanguageTexts& texts_;
  PickList startValues_;  // a start value is never none
  PickList stopValues_;
  std::function<void()> changed_;
  wxStaticText* rowLabel_;
  RowStrip* strip_;
  std::array<wxStaticText*, kDaysOfType> Label_Weekdays{};
  std::array<wxStaticText*, kBoxes> Label_Info{};
  /// `Text_Start`, `Text_Stop`, `Text_ValueOn` and `Text_ValueOff`, seven of each.
  std::array<std::array<wxTextCtrl*, kDaysOfType>, kBoxes> boxes_{};
  wxScrollBar* VScroll_WDC;
  std::optional<std::size_t> marked_;  // the column that is shown as focused
};

}  // namespace zek
