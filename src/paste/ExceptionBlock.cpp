#include "paste/ExceptionBlock.h"

#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::size_t Column(ExceptionBox box) { return static_cast<std::size_t>(box); }

bool IsStop(ExceptionBox box) { return box == ExceptionBox::DateOff || box == ExceptionBox::Stop; }

std::optional<PasteRefusal> PasteRow(OvcRow& to, std::size_t firstColumn, std::size_t row,
                                     const std::vector<std::string>& cells,
                                     const ExceptionRules& rules) {
  for (std::size_t column = 0; column < cells.size(); ++column) {
    const auto box = static_cast<ExceptionBox>(firstColumn + column);
    const std::string& cell = cells[column];
    const CellPlace place{row, column};
    if (cell.size() > kLongestCell) return BadCell(place, cell, {});
    if (cell == TextsOf(to, rules.decimalSeparator)[box]) {
      if (IsStop(box)) to.stopFollows = false;  // it was entered, although it changes nothing
      continue;
    }
    if (const auto first = FirstBox(to, box, rules.generation)) {
      const bool start = *first == ExceptionBox::DateOn;
      return BadCell(place, cell,
                     Refusal{start ? text::kDateFirst : text::kStopDateFirst, 0, {}, {}});
    }
    if (auto why = EnterException(to, box, cell, rules)) return BadCell(place, cell, why);
  }
  return std::nullopt;
}

}  // namespace

CellBlock CopyBoxes(const ExceptionTable& table, const ExceptionBoxAt& first,
                    const ExceptionBoxAt& last, const ExceptionRules& rules) {
  CellBlock block;
  for (std::size_t row = first.row; row <= last.row; ++row) {
    const ExceptionTexts texts = TextsOf(table.rows.at(row), rules.decimalSeparator);
    block.rows.emplace_back(
        texts.texts.begin() + static_cast<std::ptrdiff_t>(Column(first.box)),
        texts.texts.begin() + static_cast<std::ptrdiff_t>(Column(last.box)) + 1);
  }
  return block;
}

std::variant<ExceptionTable, PasteRefusal> PasteBoxes(ExceptionTable table,
                                                      const ExceptionBoxAt& at,
                                                      const CellBlock& block,
                                                      const ExceptionRules& rules) {
  if (auto refused = TooLarge(block, kExceptionRows - at.row, kExceptionBoxes - Column(at.box)))
    return *refused;
  for (std::size_t row = 0; row < block.rows.size(); ++row) {
    OvcRow& to = table.rows.at(at.row + row);
    if (auto refused = PasteRow(to, Column(at.box), row, block.rows[row], rules)) return *refused;
  }
  return table;
}

}  // namespace zek
