#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "editors/EditedCatalogue.h"
#include "editors/UndoHistory.h"
#include "formats/CalendarTable.h"
#include "formats/CalendarText.h"
#include "formats/Holidays.h"
#include "formats/LineOwner.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"
#include "system/Prompts.h"

namespace zek {

inline constexpr int kMonthsOfYear = 12;
inline constexpr int kDaysOfWeek = 7;
inline constexpr int kMonthRows = 6;  // the largest number of weeks that a month touches

/// The direction of a key in the month grid.
enum class CalendarMove { Left, Right, Up, Down, Home, End };

/// Consecutive days, counted from the first of the month shown as 1; others are below 1 or beyond
/// its end.
struct DayRun {
  int first = 0;
  int last = 0;

  bool operator==(const DayRun&) const = default;
};

/// The colour of a day's text.
enum class DayColour {
  Ordinary,  // like other text
  Free,      // Sundays and holidays: light red
  Selected,  // light blue
};

/// The content of a day's cell in the grid.
struct CalendarCell {
  std::string number;
  std::string type;  // three characters; blanks without an entry
  bool free = false;
  bool selected = false;
  bool today = false;
  bool holiday = false;

  DayColour Colour() const;
};

/// The month, cursor and selection of a change.
struct CalendarPlace {
  int year = 0;
  int month = 0;
  int cursor = 1;
  std::optional<CalendarDate> anchor;  // the other end of the selection
};

/// Shows the message about a refused line, with the information icon.
void ShowRefused(const RefusedDates& refused, Prompts& prompts, const LanguageTexts& texts);

/// The logic of the calendar editor, without its controls: one month of the calendar, a cursor and
/// a selection in it, and the day type to set.
class CalendarEditor {
 public:
  /// `lines` is the calendar as fetched; if it is empty, the name of `owner` decides its layout.
  /// The year of `today` is the base year; its month is shown first. With `ViewOnly` nothing can be
  /// changed or saved.
  CalendarEditor(std::span<const std::string> lines, const LineOwner& owner,
                 const CalendarYears& years, const CalendarDate& today, Access access);

  const CalendarTable& Table() const { return history_.Now(); }
  /// The lines that were not read; show them with `ShowRefused` when the editor opens.
  const std::vector<RefusedDates>& Refused() const { return refused_; }
  bool ViewOnly() const { return access_ == Access::ViewOnly; }
  /// Marks the public holidays of Sweden in the years that have no fixed list.
  void MarkSwedishHolidays() { otherYears_ = OtherYears::Sweden; }
  bool MarksSwedishHolidays() const { return otherYears_ == OtherYears::Sweden; }
  /// Sets the names that are shown behind SD1 to SD7.
  void NameSpecialDays(const SpecialDayNames& names) { names_ = names; }
  const SpecialDayNames& Names() const { return names_; }
  /// Adds lines that were not received to the lines that saving would lose.
  void CountLost(std::size_t lines) { linesLost_ += lines; }

  int Year() const { return year_; }    // 0 to 5, counted from the base year
  int Month() const { return month_; }  // 0 to 11
  int Days() const { return MonthLength(Table().BaseYear() + year_, month_); }
  /// Returns the column of the month's first day, or of a date; Monday is 0.
  int FirstColumn() const;
  static int ColumnOf(const CalendarDate& date);
  /// Returns the day in a row (0 to 5) and column (0 to 6) of the grid; nothing for an empty cell.
  std::optional<int> DayAt(int row, int column) const;

  /// Shows another month or year: clears the selection and keeps the cursor's day if it exists
  /// there.
  void ShowYear(int year);
  void ShowMonth(int month);
  /// Puts the cursor on a date; does nothing outside the six years.
  void ShowDate(const CalendarDate& date);
  /// Moves by months across year ends; returns false and does nothing beyond the six years.
  bool Step(int months);
  bool Next() { return Step(1); }
  bool Last() { return Step(-1); }

  /// 0 to remove entries, 1 to 14; nothing until one is chosen.
  std::optional<std::int16_t> DayType() const { return type_; }
  /// Sets the type for the next days; the calendar itself does not change.
  void ChooseType(int type);

  int Cursor() const { return cursor_; }  // a day of the month, from 1
  /// Returns nothing if only the cursor's day is selected.
  std::optional<DayRun> Selection() const;

  /// The mouse button is pressed on a day, moved to another, released. A press outside the days
  /// starts nothing and keeps the selection. Releasing gives the selected days the chosen type;
  /// outside the days it gives the selection up. Until a type is chosen, a press only moves the
  /// cursor.
  void Press(std::optional<int> day);
  void Drag(std::optional<int> day);
  void Release(std::optional<int> day, Prompts& prompts, const LanguageTexts& texts);
  /// The mouse stays beyond the grid's edge: shows the month before (-1) or after (1) and selects
  /// up to its nearest day. Nothing happens at the ends of the six years.
  void DragOn(int months);
  /// Ends a selection by mouse without setting the type, and shows where it began.
  void CancelDrag();
  bool Dragging() const { return dragging_; }

  /// Moves the cursor, at the month's ends into the next month. With `extend` it selects the days
  /// from where the cursor started.
  void MoveCursor(CalendarMove move, bool extend);

  /// Gives the selected days, or else the cursor's day, the chosen type, if any. If a line can't
  /// hold the year or the calendar is full, shows a message and changes nothing.
  void Apply(Prompts& prompts, const LanguageTexts& texts);

  /// Makes another table the calendar, as one step.
  void Replace(const CalendarTable& table);
  const CalendarYears& Years() const { return years_; }
  /// The lines of another table in this calendar's layout.
  BuiltLines LinesOf(const CalendarTable& table) const {
    return BuildCalendar(table, layout_, years_.generation);
  }

  /// Setting a type is one step if it changes anything. Undo and redo show the month and select the
  /// days; they return false if there is no step.
  bool Undo() { return ShowPlace(history_.Undo()); }
  bool Redo() { return ShowPlace(history_.Redo()); }
  EditState State() const { return history_.State(); }

  CalendarCell Cell(int day, const LanguageTexts& texts) const {
    return CellOn(DateOf(day), texts);
  }
  CalendarCell CellOn(const CalendarDate& date, const LanguageTexts& texts) const;
  CalendarDate DateOf(int day) const { return {Table().BaseYear() + year_, month_, day}; }
  /// The caption of a day type 0 to 14, with its name: "SD1 Jullov".
  std::string TypeCaption(int type, const LanguageTexts& texts) const;
  /// Returns the heading of the grid, "December 2026".
  std::string MonthText(const LanguageTexts& texts) const;
  /// Describes a day for screen readers: "torsdag 24 december 2026, SD1, markerad".
  std::string CellName(int day, const LanguageTexts& texts) const;

  /// Returns the table as lines for saving; nothing with `ViewOnly`.
  std::optional<EditedCatalogue> Edited() const;

 private:
  bool ShowPlace(const std::optional<CalendarPlace>& place);
  void Leave();
  void MoveBeyond(int day);
  void TellYear(int year, Prompts& prompts, const LanguageTexts& texts) const;

  CalendarLayout layout_;
  CalendarYears years_;
  CalendarDate today_;
  Access access_;
  UndoHistory<CalendarTable, CalendarPlace, SameCalendar> history_;
  std::vector<RefusedDates> refused_;
  std::size_t linesLost_ = 0;
  OtherYears otherYears_ = OtherYears::None;
  SpecialDayNames names_;
  int year_ = 0;
  int month_;
  std::optional<std::int16_t> type_;
  int cursor_;
  std::optional<CalendarDate> anchor_;  // the other end of the selection; not always in the month
  bool dragging_ = false;
};

}  // namespace zek
