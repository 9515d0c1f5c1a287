#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "editors/WeekdayEntry.h"
#include "lang/LanguageTexts.h"
#include "paste/CellBlock.h"
#include "settings/SpecialDayNames.h"

namespace zek {

// A whole weekday catalogue as text, for another control's editor, also in another running program:
// lines of cells between tabs, which a spreadsheet can show.
//   ZEKVIEW WDC 1   SKOLA/AHU1
//   MO   1   07:00   16:30   21   17     (day, row, start, stop, start value, stop value)
//   END   1                              (the number of rows: a text that was cut is not taken)

/// A value that the control's pick-list does not have.
struct OutsideValue {
  WeekdayCell cell;
  std::string value;
};

struct CopiedCatalogue {
  EditedWeekdays edited;
  std::string from;  // the control that it was copied from
  std::vector<OutsideValue> outside;
};

std::string WriteCatalogue(const EditedWeekdays& edited, std::string_view from,
                           const WeekdayRules& rules);

/// True for the text of a whole catalogue, complete or not.
bool IsCatalogue(std::string_view text);

/// Reads a catalogue for a control with these rules, each value as if it was typed.
std::variant<CopiedCatalogue, PasteRefusal> ReadCatalogue(std::string_view text,
                                                          const WeekdayRules& rules);

/// "Mån, rad 2: 22.5; ...": the first of the values, and how many more there are.
std::string OutsideText(const std::vector<OutsideValue>& outside, const LanguageTexts& texts,
                        const SpecialDayNames& names);

}  // namespace zek
