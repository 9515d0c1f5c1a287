#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/Access.h"
#include "editors/SaveWithRetry.h"
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

/// Where the Enter key leads: along the row, then to the start of the next one, from the last row
/// back to the first.
ExceptionFocus NextFocus(ExceptionFocus from);

/// The message of a refused line, with the information icon.
void ShowRefused(const RefusedException& refused, Prompts& prompts, const LanguageTexts& texts);

/// A date or time that was refused; something else was stored in its place.
struct WrongEntry {
  std::int32_t text = 0;  // text::kDateWrong or text::kTimeWrong
  std::string typed;

  bool operator==(const WrongEntry&) const = default;
};

/// One message for each.
void ShowWrong(const std::vector<WrongEntry>& wrong, Prompts& prompts, const LanguageTexts& texts);

/// What the exception editor does, without its controls: a grid of the table's eight rows. Texts
/// of the boxes are windows-1252.
class ExceptionEditor {
 public:
  using Clock = std::function<Moment()>;  // the local date and time

  /// `lines` is the catalogue as fetched. With `ViewOnly`, and for an owner without a name (a root
  /// node, whose editor owns none of the lines it would replace), nothing can be changed or saved.
  ExceptionEditor(std::span<const std::string> lines, ExceptionOwner owner, char decimalSeparator,
                  Access access, Clock now);

  const ExceptionTable& Table() const { return history_.Now(); }
  /// The lines that were not read, to be shown with `ShowRefused` when the editor opens.
  const std::vector<RefusedException>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Counts lines that did not even arrive among those that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }

  std::size_t Row() const { return row_; }  // the one that Erase works on, 0 to 7
  void FocusRow(std::size_t row);

  /// The texts of a row's boxes.
  ExceptionTexts RowTexts(std::size_t row) const;

  /// Takes what stands in the boxes of a row when the box `at` is left: date and time of the start
  /// together, or those of the stop, or one value. Boxes that still hold what was shown are no
  /// entry. An empty start date clears the row; a wrong date or time becomes today's date or the
  /// current time. The boxes are to be shown again, and then what was wrong.
  std::vector<WrongEntry> Enter(ExceptionFocus at, const ExceptionTexts& typed);

  /// Marks the current row as unused, whose other fields stay, and makes the next one (after row 7
  /// row 0) the current one. Returns it.
  std::size_t Erase();

  /// Every entry and erasure that changes what is shown is one step. Undo and redo make its row the
  /// current one and return its box, or nothing when there is no step.
  std::optional<ExceptionFocus> Undo() { return ShowPlace(history_.Undo()); }
  std::optional<ExceptionFocus> Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  /// The table as lines, to be saved, by the settings that `numbers` reads; nothing when one of
  /// them can't be used, which was shown.
  std::optional<EditedCatalogue> Edited(const NumberReader& numbers) const;

 private:
  std::optional<ExceptionFocus> ShowPlace(const std::optional<ExceptionFocus>& place);
  void TakeMoments(OvcRow& row, ExceptionBox box, const ExceptionTexts& typed,
                   std::vector<WrongEntry>& wrong) const;
  Moment TakeMoment(const std::string& date, const std::string& time,
                    std::vector<WrongEntry>& wrong) const;

  std::vector<std::string> lines_;
  ExceptionOwner owner_;
  char decimalSeparator_;
  Access access_;
  Clock now_;
  UndoHistory<ExceptionTable, ExceptionFocus, SameExceptions> history_{ExceptionTable{}};
  std::vector<RefusedException> refused_;
  std::size_t linesLost_ = 0;
  std::size_t row_ = 0;
};

}  // namespace zek
