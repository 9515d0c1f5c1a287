#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "editors/Access.h"
#include "editors/SaveWithRetry.h"
#include "editors/UndoHistory.h"
#include "formats/CalendarTable.h"
#include "formats/CalendarText.h"
#include "lang/LanguageTexts.h"
#include "system/Prompts.h"

namespace zek {

inline constexpr int kMonthsOfYear = 12;
inline constexpr int kDaysOfWeek = 7;
inline constexpr int kMonthRows = 6;  // the most weeks that a month touches

/// Where a key leads in the month grid.
enum class CalendarMove { Left, Right, Up, Down, Home, End };

/// Consecutive days of the month shown, from 1.
struct DayRun {
  int first = 0;
  int last = 0;

  bool operator==(const DayRun&) const = default;
};

/// How the text of a day is coloured.
enum class DayColour {
  Ordinary,  // as other text
  Free,      // Sundays and holidays: light red
  Selected,  // light blue
};

/// What the grid shows of a day.
struct CalendarCell {
  std::string number;
  std::string type;  // three characters, blanks without an entry
  bool free = false;
  bool selected = false;
  bool today = false;

  DayColour Colour() const;
};

/// The days that were changed, as they were selected.
struct CalendarPlace {
  int year = 0;
  int month = 0;
  int cursor = 1;
  std::optional<int> anchor;  // the other end of the selection
};

/// The message of a refused line, with the information icon.
void ShowRefused(const RefusedDates& refused, Prompts& prompts, const LanguageTexts& texts);

/// What the calendar editor does, without its controls: one month of the calendar, a cursor day
/// and a selection in it, and the day type that days are given.
class CalendarEditor {
 public:
  /// `lines` is the calendar as fetched, `name` the time control's name ("" for a root node, whose
  /// calendar has the ordinary layout). The year of `today` is the base year, its month is shown.
  /// With `ViewOnly` nothing can be changed or saved.
  CalendarEditor(std::span<const std::string> lines, std::string name, const CalendarYears& years,
                 const CalendarDate& today, Access access);

  const CalendarTable& Table() const { return history_.Now(); }
  /// The lines that were not read, to be shown with `ShowRefused` when the editor opens.
  const std::vector<RefusedDates>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Counts lines that did not even arrive among those that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }

  int Year() const { return year_; }    // 0 to 5, from the base year on
  int Month() const { return month_; }  // 0 to 11
  int Days() const { return MonthLength(Table().BaseYear() + year_, month_); }
  /// The column, Monday being 0, of the month's first day.
  int FirstColumn() const;
  /// The day in a row (0 to 5) and column (0 to 6) of the grid; nothing in an empty cell.
  std::optional<int> DayAt(int row, int column) const;

  /// Another month or year drops the selection and keeps the cursor's day as far as it exists.
  void ShowYear(int year);
  void ShowMonth(int month);
  /// Steps over the years' ends; false, and nothing done, beyond the six years.
  bool Step(int months);
  bool Next() { return Step(1); }
  bool Last() { return Step(-1); }

  std::int16_t DayType() const { return type_; }  // 0 none, 1 to 14
  /// What the next days are given; the calendar itself does not change.
  void ChooseType(int type);

  int Cursor() const { return cursor_; }  // a day of the month, from 1
  /// Nothing as long as only the cursor counts.
  std::optional<DayRun> Selection() const;

  /// The mouse button goes down on a day, moves to another, is released. Outside the days nothing
  /// begins, and a selection stays as it was. Releasing gives the selected days the chosen type.
  void Press(std::optional<int> day);
  void Drag(std::optional<int> day);
  void Release(std::optional<int> day, Prompts& prompts, const LanguageTexts& texts);
  /// Ends a selection by mouse without its type being given.
  void CancelDrag();
  bool Dragging() const { return dragging_; }

  /// Moves the cursor, beyond the month's ends into the next month. With `extend` the days from
  /// where it began are selected, and it stays within the month.
  void MoveCursor(CalendarMove move, bool extend);

  /// Gives the selection, or else the cursor's day, the chosen type. A year that a line can't hold
  /// and a calendar without room are told, and nothing changes.
  void Apply(Prompts& prompts, const LanguageTexts& texts);

  /// Giving days a type is one step, if that changes anything. Undo and redo show the month and
  /// select the days; false when there is no step.
  bool Undo() { return ShowPlace(history_.Undo()); }
  bool Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  CalendarCell Cell(int day, const LanguageTexts& texts) const;
  /// "December 2026", above the grid.
  std::string MonthText(const LanguageTexts& texts) const;
  /// All of a day in words, for those who don't see it: "torsdag 24 december 2026, SD1, markerad".
  std::string CellName(int day, const LanguageTexts& texts) const;

  /// The table as lines, to be saved; nothing with `ViewOnly`.
  std::optional<EditedCatalogue> Edited() const;

 private:
  CalendarDate DateOf(int day) const { return {Table().BaseYear() + year_, month_, day}; }
  bool IsFree(int day) const;
  bool ShowPlace(const std::optional<CalendarPlace>& place);
  void Leave();
  void MoveBeyond(int day);
  void TellYear(Prompts& prompts, const LanguageTexts& texts) const;

  std::string name_;
  CalendarYears years_;
  CalendarDate today_;
  Access access_;
  UndoHistory<CalendarTable, CalendarPlace, SameCalendar> history_;
  std::vector<RefusedDates> refused_;
  std::size_t linesLost_ = 0;
  int year_ = 0;
  int month_;
  std::int16_t type_ = kNoDayType;
  int cursor_;
  std::optional<int> anchor_;  // the other end of the selection
  bool dragging_ = false;
};

}  // namespace zek
