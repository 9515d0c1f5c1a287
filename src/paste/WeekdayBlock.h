#pragma once

#include <variant>

#include "editors/WeekdayEntry.h"
#include "paste/CellBlock.h"

namespace zek {

/// A box of the weekday editor.
struct WeekdayBoxAt {
  WeekdayCell cell;
  WeekdayBox box = WeekdayBox::Start;
};

/// The boxes of one row from `first` to `last`, which lies on the same or a later day and in the
/// same or a lower line of boxes: days side by side, the boxes of a day below one another.
CellBlock CopyBoxes(const EditedWeekdays& edited, const WeekdayBoxAt& first,
                    const WeekdayBoxAt& last, const WeekdayRules& rules);

/// Enters a block as if its cells were typed, beginning at a box: its columns go to the following
/// days, its rows to the boxes below, and on to the next row. A cell that is not there leaves its
/// box as it is. The block must end with the seven days that are shown together and the 16 rows.
/// Unlike typing, a stop value for a control without stop values is refused.
std::variant<EditedWeekdays, PasteRefusal> PasteBoxes(EditedWeekdays edited, const WeekdayBoxAt& at,
                                                      const CellBlock& block,
                                                      const WeekdayRules& rules);

/// Enters one cell of a block by these rules, or returns why not.
std::optional<PasteRefusal> PasteCell(EditedWeekdays& edited, const WeekdayBoxAt& at,
                                      std::string_view cell, const CellPlace& place,
                                      const WeekdayRules& rules);

}  // namespace zek
