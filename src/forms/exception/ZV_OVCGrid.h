#pragma once

#include <array>
#include <optional>

#include <wx/gbsizer.h>
#include <wx/stattext.h>

#include "editors/ExceptionEditor.h"
#include "forms/EntryGrid.h"

namespace zek {

/// The grid of the exception editor: all eight rows, six boxes each. It passes entries to the
/// editor and shows the resulting table.
class OvcGrid final : public EntryGrid {
 public:
  OvcGrid(wxWindow* parent, ExceptionEditor& editor, Parts parts);

  void ShowRows() { ShowBoxes(); }

  void Focus(ExceptionFocus at) { FocusBox(NumberOf(at)); }
  /// Moves the focus to the box that had it last.
  void FocusLast() { Focus(last_); }

  /// Handles Enter; returns false for any other key.
  bool TakeKey(int key);

  /// The boxes are numbered along the rows.
  static ExceptionFocus At(std::size_t box) {
    return {static_cast<ExceptionBox>(box % kExceptionBoxes), box / kExceptionBoxes};
  }

 private:
  static constexpr std::size_t kLabels = 11;

  std::string CellText(std::size_t box) const override { return editor_.CellText(At(box)); }
  std::string ShownText(std::size_t box) const override { return editor_.ShownText(At(box)); }
  std::int32_t MarkOf(std::size_t box) const override { return editor_.MarkOf(At(box)); }
  std::string DateNear(std::size_t box) const override {
    return editor_.CellText({ExceptionBox::DateOn, At(box).row});
  }
  const PickList& NamesOf(std::size_t box) const override { return editor_.NamesOf(At(box).box); }
  bool TakesMidnight(std::size_t box) const override { return editor_.TakesMidnight(At(box)); }
  std::optional<Lead> LeadOf(std::size_t box) const override;
  std::optional<Refusal> EnterText(std::size_t box, const std::string& typed) override;
  void OnEntered(std::size_t box) override;

  static std::size_t NumberOf(ExceptionFocus at) {
    return at.row * kExceptionBoxes + static_cast<std::size_t>(at.box);
  }

  void BuildLabels();
  void BuildBoxes();
  void NameBoxes(std::size_t row);
  void LayOut();

  ExceptionEditor& editor_;
  std::array<wxStaticText*, kLabels> Label_Info{};
  std::array<wxStaticText*, kExceptionRows> rowLabels_{};
  ExceptionFocus last_;
  std::optional<std::size_t> marked_;  // the row that is highlighted
};

}  // namespace zek
