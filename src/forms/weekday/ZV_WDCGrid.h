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
/// entries to the editor and shows the resulting table.
class WeekdayGrid final : public wxPanel {
 public:
  /// The value boxes offer `pickList`. `changed` is called after every change of the table.
  WeekdayGrid(wxWindow* parent, WeekdayEditor& editor, const LanguageTexts& texts,
              PickList pickList, std::function<void()> changed);

  /// Shows the editor's current type, row and column.
  void ShowCells();

  /// Enters the text of the focused box. Call it before any other action on the row.
  void TakeEntry();

  /// `HasEntry`: the focused box differs from the table. `DropEntry` shows the table again.
  bool HasEntry() const;
  void DropEntry();

  void GoToRow(std::size_t row);

  /// Moves the focus to a box, or to the start time of a column.
  void Focus(WeekdayFocus at);
  void FocusStart(std::size_t column) { Focus({WeekdayBox::Start, column}); }

  /// Handles Enter, PageUp and PageDown; returns false for any other key.
  bool TakeKey(int key);

 private:
  static constexpr std::size_t kBoxes = 4;  // values of `WeekdayBox`

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
  PickList startValues_;  // without "Default": a start needs a value
  PickList stopValues_;
  std::function<void()> changed_;
  wxStaticText* rowLabel_;
  RowStrip* strip_;
  std::array<wxStaticText*, kDaysOfType> Label_Weekdays{};
  std::array<wxStaticText*, kBoxes> Label_Info{};
  /// `Text_Start`, `Text_Stop`, `Text_ValueOn` and `Text_ValueOff`, seven of each.
  std::array<std::array<wxTextCtrl*, kDaysOfType>, kBoxes> boxes_{};
  wxScrollBar* VScroll_WDC;
  std::optional<std::size_t> marked_;  // the column that is highlighted
};

}  // namespace zek
