#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/Access.h"
#include "editors/SaveWithRetry.h"
#include "editors/UndoHistory.h"
#include "formats/WeekdayTable.h"
#include "formats/WeekdayText.h"
#include "lang/LanguageTexts.h"
#include "system/Prompts.h"

namespace zek {

enum class WeekdayBox { Start, Stop, ValueOn, ValueOff };

/// One box of the grid; columns are 0 to 6.
struct WeekdayFocus {
  WeekdayBox box = WeekdayBox::Start;
  std::size_t column = 0;

  bool operator==(const WeekdayFocus&) const = default;
};

/// The box at which the table was changed, and what was shown then.
struct WeekdayPlace {
  std::size_t type = 0;
  std::size_t row = 0;
  WeekdayFocus focus;
};

/// Where the Enter key leads: down the column, then to the top of the next one, from the last
/// column back to the first.
WeekdayFocus NextFocus(WeekdayFocus from);

/// The icon, text and line of a refused line in a message box.
void ShowRefused(const RefusedLine& refused, Prompts& prompts, const LanguageTexts& texts);

/// What the weekday editor does, without its controls: a grid of one row of the table for the
/// seven days of a type. Texts of the boxes are windows-1252.
class WeekdayEditor {
 public:
  /// `lines` is the catalogue as fetched, `name` the time control's name; a root node has none,
  /// and its editor shows the lines without a name. With `ViewOnly` nothing can be changed or
  /// saved.
  WeekdayEditor(std::span<const std::string> lines, std::string name, char decimalSeparator,
                Access access);

  const WeekdayTable& Table() const { return history_.Now(); }
  /// The line at which reading stopped, to be shown with `ShowRefused` when the editor opens.
  const std::optional<RefusedLine>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Counts lines that did not even arrive among those that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }
  /// False for "PLT" time controls, whose lines hold no stop value: entries are not taken.
  bool HasStopValues() const;

  std::size_t Type() const { return type_; }      // 0 Monday to Sunday, 1 SD1 to SD7
  std::size_t Row() const { return row_; }        // 0 to 15
  std::size_t Column() const { return column_; }  // the one that Copy and Erase work on
  void ShowType(std::size_t type);
  void ShowRow(std::size_t row);
  void FocusColumn(std::size_t column);

  /// Text 271 or 272 and the number of used rows of that type in brackets.
  std::string TypeCaption(std::size_t type, const LanguageTexts& texts) const;

  /// The text of each box.
  std::string StartText(std::size_t column) const;
  std::string StopText(std::size_t column) const;
  std::string ValueOnText(std::size_t column) const;
  std::string ValueOffText(std::size_t column) const;

  /// Take what was typed into a box (see `TypedTime`, `TypedValueOn`, `TypedValueOff`). A time
  /// that is refused leaves the old one; the boxes are to be shown again in any case.
  void EnterStart(std::size_t column, std::string_view text);
  void EnterStop(std::size_t column, std::string_view text);
  void EnterValueOn(std::size_t column, std::string_view text);
  void EnterValueOff(std::size_t column, std::string_view text);

  /// Copies the focused column's row to the next column, after column 6 to column 0, and makes
  /// that the focused one. Returns it.
  std::size_t Copy();

  /// Empties the focused column's row and makes the next column the focused one, as `Copy` does.
  std::size_t Erase();

  /// Every entry, copy and erasure that changes the table is one step. Undo and redo show the type,
  /// row and column where it was made and return its box, or nothing when there is no step.
  std::optional<WeekdayFocus> Undo() { return ShowPlace(history_.Undo()); }
  std::optional<WeekdayFocus> Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  /// The table as lines, to be saved; nothing with `ViewOnly`.
  std::optional<EditedCatalogue> Edited() const;

 private:
  const WeekdayRow& Cells(std::size_t column) const {
    return Table().days[type_ * kDaysOfType + column][row_];
  }
  template <class Edit>
  void Change(WeekdayFocus at, Edit edit);
  std::optional<WeekdayFocus> ShowPlace(const std::optional<WeekdayPlace>& place);

  std::vector<std::string> lines_;
  std::string name_;
  char decimalSeparator_;
  Access access_;
  UndoHistory<WeekdayTable, WeekdayPlace> history_{WeekdayTable{}};
  std::optional<RefusedLine> refused_;
  std::size_t linesLost_ = 0;
  std::size_t type_ = 0;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
};

}  // namespace zek
