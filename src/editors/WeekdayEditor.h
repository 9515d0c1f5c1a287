#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/EditedCatalogue.h"
#include "editors/Entry.h"
#include "editors/PickList.h"
#include "editors/UndoHistory.h"
#include "editors/WeekdayEntry.h"
#include "forecast/EditedEntries.h"
#include "formats/WeekdayTable.h"
#include "formats/WeekdayText.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"
#include "system/Prompts.h"

namespace zek {

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

/// Returns the next box for the Enter key: down the column, then at the top of the next column,
/// from the last column back to the first.
WeekdayFocus NextFocus(WeekdayFocus from);

/// Shows a message box with the icon, text and line of a refused line.
void ShowRefused(const RefusedLine& refused, Prompts& prompts, const LanguageTexts& texts);

/// The logic of the weekday editor, without its controls: a grid of one row of the table for the
/// seven days of a type. The texts of the boxes are windows-1252.
class WeekdayEditor {
 public:
  /// `lines` is the catalogue as fetched. The editor of a root node, an owner without a name, shows
  /// the lines without one. `pickList` names the stop values and, but for "Default", the start
  /// values. With `ViewOnly` nothing can be changed or saved.
  WeekdayEditor(std::span<const std::string> lines, LineOwner owner, char decimalSeparator,
                const PickList& pickList, Access access);

  const WeekdayTable& Table() const { return Now().table; }
  const EditedWeekdays& Now() const { return history_.Now(); }
  /// The lines that were not read; show them with `ShowRefused` when the editor opens.
  const std::vector<RefusedLine>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Adds lines that were not received to the lines that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }
  /// Sets the names that are shown behind SD1 to SD7.
  void NameSpecialDays(const SpecialDayNames& names) { names_ = names; }
  const SpecialDayNames& Names() const { return names_; }
  /// False for "PLT" time controls: their lines have no stop value, and entries are ignored.
  bool HasStopValues() const { return rules_.hasStopValues; }
  const WeekdayRules& Rules() const { return rules_; }

  std::size_t Type() const { return type_; }      // 0 Monday to Sunday, 1 SD1 to SD7
  std::size_t Row() const { return row_; }        // 0 to 15
  std::size_t Column() const { return column_; }  // the column for Copy and Erase
  void ShowType(std::size_t type);
  void ShowRow(std::size_t row);
  void FocusColumn(std::size_t column);

  /// Returns text 271 or 272 and, in brackets, the number of used rows of that type.
  std::string TypeCaption(std::size_t type, const LanguageTexts& texts) const;

  /// The names of a value box's values; no items for the other boxes.
  const PickList& NamesOf(WeekdayBox box) const { return rules_.NamesOf(box); }

  /// The text of a box; `ShownText` adds a value's name, for a box without the focus.
  std::string CellText(WeekdayFocus at) const;
  std::string ShownText(WeekdayFocus at) const { return WithName(CellText(at), NamesOf(at.box)); }
  /// Why a box is marked (text::kStopFirst to text::kNoStartValue), or 0.
  std::int32_t MarkOf(WeekdayFocus at) const;

  /// Enters what was typed into a box (see `EnterWeekday`), or returns why not.
  std::optional<Refusal> Enter(WeekdayFocus at, std::string_view text);

  /// Copies the focused column's row to the next column and makes that the focused one. Does
  /// nothing in the last column. Returns the focused column.
  std::size_t Copy();

  /// Empties the focused column's row and makes the next column (after column 6, column 0) the
  /// focused one. Returns it.
  std::size_t Erase();

  /// Makes another table the catalogue, as one step.
  void Replace(const EditedWeekdays& edited);

  /// Every entry, copy and erasure that changes the table is one step. Undo and redo show its type,
  /// row and column and return its box, or nothing if there is no step.
  std::optional<WeekdayFocus> Undo() { return ShowPlace(history_.Undo()); }
  std::optional<WeekdayFocus> Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  /// The heading of a column, "Mån" or "SD 1 Jullov", and where the change was that was undone
  /// last: "Mån, rad 2", "SD1 Jullov, rad 2".
  std::string DayName(std::size_t column, const LanguageTexts& texts) const;
  std::string PlaceName(const LanguageTexts& texts) const;

  /// What the user should know before the catalogue is sent: rows that are not used and start
  /// values that were not entered.
  std::vector<std::string> Notes(const LanguageTexts& texts) const;

  /// The used rows whose start value was not entered.
  std::vector<WeekdayCell> NotEntered() const;

  /// Shows the type, row and column of a cell and returns its start box.
  WeekdayFocus ShowCell(const WeekdayCell& cell);

  /// Returns the table as lines for saving; nothing with `ViewOnly`.
  std::optional<EditedCatalogue> Edited() const;

 private:
  WeekdayCell CellOf(std::size_t column) const { return {type_ * kDaysOfType + column, row_}; }
  const WeekdayRow& RowOf(const WeekdayCell& cell) const { return Now().At(cell); }
  std::int32_t TimeMark(const WeekdayCell& cell) const;
  void Put(std::size_t column, const WeekdayRow& row, bool unvalued);
  std::optional<WeekdayFocus> ShowPlace(const std::optional<WeekdayPlace>& place);

  std::vector<std::string> lines_;
  LineOwner owner_;
  WeekdayRules rules_;
  Access access_;
  UndoHistory<EditedWeekdays, WeekdayPlace, SameWeekdays> history_{EditedWeekdays{}};
  std::vector<RefusedLine> refused_;
  SpecialDayNames names_;
  std::size_t linesLost_ = 0;
  std::size_t type_ = 0;
  std::size_t row_ = 0;
  std::size_t column_ = 0;
};

}  // namespace zek
