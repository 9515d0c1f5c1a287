#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/EditedCatalogue.h"
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

/// A date or time that was refused and replaced.
struct WrongEntry {
  std::int32_t text = 0;  // text::kDateWrong or text::kTimeWrong
  std::string typed;

  bool operator==(const WrongEntry&) const = default;
};

/// Shows one message for each entry.
void ShowWrong(const std::vector<WrongEntry>& wrong, Prompts& prompts, const LanguageTexts& texts);

/// The logic of the exception editor, without its controls: a grid of the table's eight rows. The
/// texts of the boxes are windows-1252.
class ExceptionEditor {
 public:
  using Clock = std::function<Moment()>;  // the local date and time

  /// `lines` is the catalogue as fetched. Nothing can be changed or saved with `ViewOnly`, nor for
  /// an owner without a name: a root node owns none of the lines that saving would replace.
  ExceptionEditor(std::span<const std::string> lines, LineOwner owner, char decimalSeparator,
                  Access access, Clock now);

  const ExceptionTable& Table() const { return history_.Now(); }
  /// The lines that were not read; show them with `ShowRefused` when the editor opens.
  const std::vector<RefusedException>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Adds lines that were not received to the lines that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }

  std::size_t Row() const { return row_; }  // the row for Erase, 0 to 7
  void FocusRow(std::size_t row);

  /// Returns the texts of a row's boxes.
  ExceptionTexts RowTexts(std::size_t row) const;

  /// Stores the boxes of a row when the user leaves the box `at`: date and time of the start
  /// together, or those of the stop, or one value. Unchanged boxes are not an entry. An empty start
  /// date clears the row; an invalid date or time becomes today's date or the current time.
  /// Afterwards refresh the boxes, then show the errors returned.
  std::vector<WrongEntry> Enter(ExceptionFocus at, const ExceptionTexts& typed);

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
  void TakeMoments(OvcRow& row, ExceptionBox box, const ExceptionTexts& typed,
                   std::vector<WrongEntry>& wrong) const;
  Moment TakeMoment(const std::string& date, const std::string& time,
                    std::vector<WrongEntry>& wrong) const;

  std::vector<std::string> lines_;
  LineOwner owner_;
  char decimalSeparator_;
  Access access_;
  Clock now_;
  UndoHistory<ExceptionTable, ExceptionFocus, SameExceptions> history_{ExceptionTable{}};
  std::vector<RefusedException> refused_;
  std::size_t linesLost_ = 0;
  std::size_t row_ = 0;
};

}  // namespace zek
