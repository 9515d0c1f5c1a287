#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/EditedCatalogue.h"
#include "editors/Entry.h"
#include "editors/ExceptionEntry.h"
#include "editors/PickList.h"
#include "editors/UndoHistory.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionTable.h"
#include "formats/ExceptionText.h"
#include "lang/LanguageTexts.h"
#include "settings/Settings.h"
#include "system/Prompts.h"

namespace zek {

/// One box of the grid; rows are 0 to 7.
struct ExceptionFocus {
  ExceptionBox box = ExceptionBox::DateOn;
  std::size_t row = 0;

  bool operator==(const ExceptionFocus&) const = default;
};

/// Returns the next box for the Enter key: along the row, then at the start of the next row, from
/// the last row back to the first.
ExceptionFocus NextFocus(ExceptionFocus from);

/// Shows the message about a refused line, with the information icon.
void ShowRefused(const RefusedException& refused, Prompts& prompts, const LanguageTexts& texts);

/// The logic of the exception editor, without its controls: a grid of the table's eight rows. The
/// texts of the boxes are windows-1252.
class ExceptionEditor {
 public:
  using Clock = std::function<Moment()>;  // the local date and time

  /// `lines` is the catalogue as fetched, `pickList` names its values. Nothing can be changed or
  /// saved with `ViewOnly`, nor for an owner without a name: a root node owns none of the lines
  /// that saving would replace.
  ExceptionEditor(std::span<const std::string> lines, LineOwner owner, char decimalSeparator,
                  PickList pickList, Access access, Clock now);

  const ExceptionTable& Table() const { return history_.Now(); }
  /// The lines that were not read; show them with `ShowRefused` when the editor opens.
  const std::vector<RefusedException>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Adds lines that were not received to the lines that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }

  std::size_t Row() const { return row_; }  // the row for Erase, 0 to 7
  void FocusRow(std::size_t row);

  /// The names of a value box's values; no items for the other boxes.
  const PickList& NamesOf(ExceptionBox box) const { return rules_.NamesOf(box); }
  const ExceptionRules& Rules() const { return rules_; }

  /// The text of a box; `ShownText` adds a value's name, for a box without the focus.
  std::string CellText(ExceptionFocus at) const;
  std::string ShownText(ExceptionFocus at) const { return WithName(CellText(at), NamesOf(at.box)); }
  /// Why a box is marked (text::kStopFirst to text::kNotInList), or 0.
  std::int32_t MarkOf(ExceptionFocus at) const;

  /// The box that must be filled before `at`.
  std::optional<ExceptionFocus> FirstBox(ExceptionFocus at) const;

  bool TakesMidnight(ExceptionFocus at) const { return zek::TakesMidnight(RowOf(at), at.box); }

  /// Enters what was typed into a box (see `EnterException`), or returns why not.
  std::optional<Refusal> Enter(ExceptionFocus at, std::string_view text);

  /// Makes another table the catalogue, as one step at the current row.
  void Replace(const ExceptionTable& table);

  /// Marks the current row as unused without changing its other fields, and makes the next one
  /// (after row 7, row 0) the current row. Returns it.
  std::size_t Erase();

  /// Every entry and erasure with a visible effect is one step. Undo and redo make its row the
  /// current one and return its box, or nothing if there is no step.
  std::optional<ExceptionFocus> Undo() { return ShowPlace(history_.Undo()); }
  std::optional<ExceptionFocus> Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  /// Returns the table as lines for saving, using the settings that `numbers` reads. Returns
  /// nothing with `ViewOnly` or, after a message, if a setting can't be used.
  std::optional<EditedCatalogue> Edited(const NumberReader& numbers) const;

 private:
  std::optional<ExceptionFocus> ShowPlace(const std::optional<ExceptionFocus>& place);
  const OvcRow& RowOf(ExceptionFocus at) const { return Table().rows.at(at.row); }
  std::int32_t TimeMark(std::size_t row) const;

  std::vector<std::string> lines_;
  LineOwner owner_;
  ExceptionRules rules_;
  Access access_;
  UndoHistory<ExceptionTable, ExceptionFocus, SameExceptions> history_{ExceptionTable{}};
  std::vector<RefusedException> refused_;
  std::size_t linesLost_ = 0;
  std::size_t row_ = 0;
};

}  // namespace zek
