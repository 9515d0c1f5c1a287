#include "paste/WholeCatalogue.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <optional>

#include "editors/WeekdayEditor.h"
#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "paste/WeekdayBlock.h"
#include "text/Controls.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::string_view kMark = "ZEKVIEW WDC 1";
constexpr std::string_view kEnd = "END";
constexpr std::array kBoxes{WeekdayBox::Start, WeekdayBox::Stop, WeekdayBox::ValueOn,
                            WeekdayBox::ValueOff};
constexpr std::size_t kFirstBox = 2;  // behind day and row

PasteRefusal Damaged(std::size_t line) { return {text::kPasteDamaged, {std::to_string(line + 1)}}; }

std::optional<WeekdayCell> CellOf(const std::vector<std::string>& cells) {
  if (cells.size() != kFirstBox + kBoxes.size()) return std::nullopt;
  const auto key = std::find(kDayKeys.begin(), kDayKeys.end(), cells[0]);
  for (std::size_t row = 0; row < kWeekdayRows && key != kDayKeys.end(); ++row) {
    if (cells[1] == std::to_string(row + 1))
      return WeekdayCell{static_cast<std::size_t>(key - kDayKeys.begin()), row};
  }
  return std::nullopt;
}

bool IsEnd(const std::vector<std::string>& cells, std::size_t rows) {
  return cells.size() == 2 && cells[0] == kEnd && cells[1] == std::to_string(rows);
}

// A spreadsheet gives every line as many cells as the longest one.
CellBlock WithoutEmptyEnds(CellBlock block) {
  for (std::size_t row = 0; row < block.rows.size(); ++row) {
    auto& cells = block.rows[row];
    const std::size_t least =
        row == 0 || cells.empty() || cells[0] == kEnd ? std::size_t{2} : kFirstBox + kBoxes.size();
    while (cells.size() > least && cells.back().empty()) cells.pop_back();
  }
  return block;
}

std::vector<OutsideValue> Outside(const EditedWeekdays& edited, const WeekdayRules& rules) {
  std::vector<OutsideValue> outside;
  for (std::size_t place = 0; place < kWeekdayDays * kWeekdayRows; ++place) {
    const WeekdayCell cell{place / kWeekdayRows, place % kWeekdayRows};
    for (const WeekdayBox box : {WeekdayBox::ValueOn, WeekdayBox::ValueOff}) {
      const std::string value = BoxText(edited, cell, box, rules.decimalSeparator);
      if (!value.empty() && IsOutside(value, rules.NamesOf(box))) outside.push_back({cell, value});
    }
  }
  return outside;
}

}  // namespace

std::string WriteCatalogue(const EditedWeekdays& edited, std::string_view from,
                           const WeekdayRules& rules) {
  CellBlock block{{{std::string(kMark), std::string(from)}}};
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      if (edited.At({day, row}) == WeekdayRow{}) continue;
      auto& cells = block.rows.emplace_back();
      cells = {std::string(kDayKeys.at(day)), std::to_string(row + 1)};
      for (const WeekdayBox box : kBoxes)
        cells.push_back(BoxText(edited, {day, row}, box, rules.decimalSeparator));
    }
  }
  block.rows.push_back({std::string(kEnd), std::to_string(block.rows.size() - 1)});
  return WriteBlock(block);
}

bool IsCatalogue(std::string_view text) { return text.starts_with(kMark); }

std::variant<CopiedCatalogue, PasteRefusal> ReadCatalogue(std::string_view text,
                                                          const WeekdayRules& rules) {
  const CellBlock block = WithoutEmptyEnds(ReadBlock(text));
  if (block.rows[0].size() != 2 || block.rows[0][0] != kMark) return Damaged(0);
  const std::size_t end = block.rows.size() - 1;
  if (end == 0 || !IsEnd(block.rows[end], end - 1)) return Damaged(end);
  CopiedCatalogue copied;
  copied.from = Shortened(block.rows[0][1], 60);
  ShowControls(copied.from);
  std::bitset<kWeekdayDays * kWeekdayRows> given;
  for (std::size_t line = 1; line < end; ++line) {
    const auto& cells = block.rows[line];
    const auto cell = CellOf(cells);
    if (!cell || given.test(EditedWeekdays::Place(*cell))) return Damaged(line);
    given.set(EditedWeekdays::Place(*cell));
    for (std::size_t box = 0; box < kBoxes.size(); ++box) {
      const std::size_t column = kFirstBox + box;
      if (auto refused = PasteCell(copied.edited, {*cell, kBoxes.at(box)}, cells[column],
                                   {line, column}, rules))
        return *refused;
    }
  }
  copied.outside = Outside(copied.edited, rules);
  return copied;
}

std::string OutsideText(const std::vector<OutsideValue>& outside, const LanguageTexts& texts,
                        const SpecialDayNames& names) {
  constexpr std::size_t most = 8;
  std::string all;
  for (std::size_t at = 0; at < std::min(most, outside.size()); ++at) {
    const OutsideValue& each = outside[at];
    all += (at == 0 ? "" : "; ") +
           Message(texts.Text(text::kPlaceOfRow),
                   {DayTypeName(each.cell.day, texts, names), std::to_string(each.cell.row + 1)}) +
           ": " + each.value;
  }
  if (outside.size() <= most) return all;
  return all + " " + Message(texts.Text(text::kPasteMore), {std::to_string(outside.size() - most)});
}

}  // namespace zek
