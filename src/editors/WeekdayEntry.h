#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <string_view>

#include "editors/Entry.h"
#include "editors/PickList.h"
#include "forecast/EditedEntries.h"
#include "formats/WeekdayTable.h"

namespace zek {

enum class WeekdayBox { Start, Stop, ValueOn, ValueOff };
inline constexpr std::size_t kWeekdayBoxes = 4;

/// The table as it is edited. `unvalued` marks the rows whose start value was emptied or not
/// entered yet: it is 0, which the user may not mean, and shows as an empty box.
struct EditedWeekdays {
  WeekdayTable table;
  std::bitset<kWeekdayDays * kWeekdayRows> unvalued;

  static std::size_t Place(const WeekdayCell& cell) { return cell.day * kWeekdayRows + cell.row; }
  WeekdayRow& At(const WeekdayCell& cell) { return table.days.at(cell.day).at(cell.row); }
  const WeekdayRow& At(const WeekdayCell& cell) const {
    return table.days.at(cell.day).at(cell.row);
  }
  bool IsUnvalued(const WeekdayCell& cell) const {
    return unvalued.test(Place(cell)) && At(cell).valueOn == 0;
  }
};

struct SameWeekdays {
  bool operator()(const EditedWeekdays& left, const EditedWeekdays& right) const {
    return left.table == right.table;
  }
};

/// How the texts of a weekday table's boxes are written and read.
struct WeekdayRules {
  char decimalSeparator = '.';
  PickList stopValues{};
  PickList startValues{};     // without "Default": a start needs a value
  bool hasStopValues = true;  // false for "PLT" controls

  const PickList& NamesOf(WeekdayBox box) const;
};

/// The text of a box, windows-1252.
std::string BoxText(const EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                    char decimalSeparator);

/// Enters what was typed into a box (see `TypedTime`, `TypedValue`), or returns why not. A text
/// that is there already changes nothing. An empty stop value is none, an empty start value 0.
/// Ignores a stop value where there are none.
std::optional<Refusal> EnterWeekday(EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                                    std::string_view text, const WeekdayRules& rules);

}  // namespace zek
