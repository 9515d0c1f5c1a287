#include "paste/CellBlock.h"

#include <algorithm>
#include <utility>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Fields.h"
#include "text/Lines.h"

namespace zek {
namespace {

std::vector<std::string> CellsOf(std::string_view line, char separator) {
  std::vector<std::string> cells;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find(separator, begin), line.size());
    cells.emplace_back(line.substr(begin, end - begin));
    begin = end + 1;
  }
  return cells;
}

}  // namespace

std::size_t CellBlock::Columns() const {
  std::size_t columns = 0;
  for (const auto& row : rows) columns = std::max(columns, row.size());
  return columns;
}

bool IsBlock(std::string_view text) {
  const std::string_view first = TakeLine(text);
  return !text.empty() || first.find_first_of("\t;") != std::string_view::npos;
}

CellBlock ReadBlock(std::string_view text) {
  text = text.substr(0, kLargestPaste);
  const bool tabs = text.find('\t') != std::string_view::npos;
  CellBlock block;
  while (!text.empty()) block.rows.push_back(CellsOf(TakeLine(text), tabs ? '\t' : ';'));
  if (block.Columns() < 2) return block;
  for (auto& row : block.rows)
    if (row.size() == 1 && row[0].empty()) row.clear();
  while (block.rows.back().empty()) block.rows.pop_back();
  return block;
}

std::string WriteBlock(const CellBlock& block) {
  std::string text;
  for (const auto& row : block.rows) {
    for (std::size_t column = 0; column < row.size(); ++column)
      text += (column == 0 ? "" : "\t") + row[column];
    text += "\r\n";
  }
  return text;
}

std::string PastedMessage(const CellBlock& block, const LanguageTexts& texts) {
  return Message(texts.Text(text::kPasted),
                 {std::to_string(block.rows.size()), std::to_string(block.Columns())});
}

std::string PasteRefusal::MessageIn(const LanguageTexts& texts) const {
  std::string message = Message(texts.Text(text), {values[0], values[1], values[2], values[3]});
  if (!why) return message;
  message += "\r\n" + Message(texts.Text(why->text), {why->typed});
  return why->hint == 0 ? message : message + "\r\n" + texts.Text(why->hint);
}

PasteRefusal BadCell(const CellPlace& place, std::string_view cell, std::optional<Refusal> why) {
  std::string shown = Shortened(cell, 2 * kLongestCell);
  ShowControls(shown);
  if (why) why->typed = shown;
  return {text::kPasteBadCell,
          {std::to_string(place.row + 1), std::to_string(place.column + 1), shown},
          std::move(why)};
}

std::optional<PasteRefusal> TooLarge(const CellBlock& block, std::size_t rows,
                                     std::size_t columns) {
  if (block.rows.size() <= rows && block.Columns() <= columns) return std::nullopt;
  return PasteRefusal{text::kPasteTooLarge,
                      {std::to_string(block.rows.size()), std::to_string(block.Columns()),
                       std::to_string(rows), std::to_string(columns)}};
}

}  // namespace zek
