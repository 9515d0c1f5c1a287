#pragma once

#include <array>
#include <functional>
#include <optional>

#include <wx/gbsizer.h>
#include <wx/scrolbar.h>
#include <wx/stattext.h>

#include "editors/WeekdayEditor.h"
#include "forms/EntryGrid.h"
#include "forms/weekday/ZV_WDCRows.h"

namespace zek {

/// The grid of the weekday editor: one row of the catalogue, seven days side by side. It passes
/// entries to the editor and shows the resulting table.
class WeekdayGrid final : public EntryGrid {
 public:
  WeekdayGrid(wxWindow* parent, WeekdayEditor& editor, Parts parts);

  /// Called after the grid showed another type, row or column.
  std::function<void()> shown = [] {};

  /// Shows the editor's current type, row and column.
  void ShowCells();

  void GoToRow(std::size_t row);

  /// Moves the focus to a box, or to the start time of a column.
  void Focus(WeekdayFocus at);
  void FocusStart(std::size_t column) { Focus({WeekdayBox::Start, column}); }

  /// Handles Enter, PageUp and PageDown; returns false for any other key.
  bool TakeKey(int key);

  /// The boxes are numbered row by row, because that sets the order of the Tab key.
  static WeekdayFocus At(std::size_t box) {
    return {static_cast<WeekdayBox>(box / kDaysOfType), box % kDaysOfType};
  }

 private:
  static constexpr std::size_t kBoxKinds = 4;  // values of `WeekdayBox`

  std::string CellText(std::size_t box) const override { return editor_.CellText(At(box)); }
  std::string ShownText(std::size_t box) const override { return editor_.ShownText(At(box)); }
  std::int32_t MarkOf(std::size_t box) const override { return editor_.MarkOf(At(box)); }
  const PickList& NamesOf(std::size_t box) const override { return editor_.NamesOf(At(box).box); }
  std::optional<Refusal> EnterText(std::size_t box, const std::string& typed) override;
  void OnEntered(std::size_t box) override;

  static std::size_t NumberOf(WeekdayFocus at) {
    return static_cast<std::size_t>(at.box) * kDaysOfType + at.column;
  }

  void BuildLabels();
  void BuildBoxes();
  void BuildScrollBar();
  void LayOut();
  void OnScroll(wxScrollEvent& event);
  void ShowHeaders();

  WeekdayEditor& editor_;
  wxStaticText* rowLabel_;
  RowStrip* strip_;
  std::array<wxStaticText*, kDaysOfType> Label_Weekdays{};
  std::array<wxStaticText*, kBoxKinds> Label_Info{};
  wxScrollBar* VScroll_WDC = nullptr;
  std::optional<std::size_t> marked_;  // the column that is highlighted
};

}  // namespace zek
