#include "paste/WeekdayBlock.h"

#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

// The box `lines` below.
WeekdayBoxAt Below(const WeekdayBoxAt& at, std::size_t lines) {
  const std::size_t line = static_cast<std::size_t>(at.box) + lines;
  return {{at.cell.day, at.cell.row + line / kWeekdayBoxes},
          static_cast<WeekdayBox>(line % kWeekdayBoxes)};
}

}  // namespace

CellBlock CopyBoxes(const EditedWeekdays& edited, const WeekdayBoxAt& first,
                    const WeekdayBoxAt& last, const WeekdayRules& rules) {
  CellBlock block;
  for (auto box = static_cast<int>(first.box); box <= static_cast<int>(last.box); ++box) {
    auto& row = block.rows.emplace_back();
    for (std::size_t day = first.cell.day; day <= last.cell.day; ++day)
      row.push_back(BoxText(edited, {day, first.cell.row}, static_cast<WeekdayBox>(box),
                            rules.decimalSeparator));
  }
  return block;
}

std::optional<PasteRefusal> PasteCell(EditedWeekdays& edited, const WeekdayBoxAt& at,
                                      std::string_view cell, const CellPlace& place,
                                      const WeekdayRules& rules) {
  if (cell.size() > kLongestCell) return BadCell(place, cell, {});
  const auto stop = TypedValue(cell, rules.NamesOf(at.box));
  const bool lost = at.box == WeekdayBox::ValueOff && !rules.hasStopValues && !Trim(cell).empty() &&
                    stop != kNoValue;
  if (lost) return BadCell(place, cell, Refusal{text::kPlanNoStopValue, 0, {}, {}});
  if (auto why = EnterWeekday(edited, at.cell, at.box, cell, rules))
    return BadCell(place, cell, why);
  return std::nullopt;
}

std::variant<EditedWeekdays, PasteRefusal> PasteBoxes(EditedWeekdays edited, const WeekdayBoxAt& at,
                                                      const CellBlock& block,
                                                      const WeekdayRules& rules) {
  const std::size_t rows =
      (kWeekdayRows - at.cell.row) * kWeekdayBoxes - static_cast<std::size_t>(at.box);
  if (auto refused = TooLarge(block, rows, kDaysOfType - at.cell.day % kDaysOfType))
    return *refused;
  for (std::size_t row = 0; row < block.rows.size(); ++row) {
    WeekdayBoxAt to = Below(at, row);
    for (std::size_t column = 0; column < block.rows[row].size(); ++column, ++to.cell.day) {
      const std::string& cell = block.rows[row][column];
      if (auto refused = PasteCell(edited, to, cell, {row, column}, rules)) return *refused;
    }
  }
  return edited;
}

}  // namespace zek
