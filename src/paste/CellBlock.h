#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editors/Entry.h"
#include "lang/LanguageTexts.h"

namespace zek {

inline constexpr std::size_t kLargestPaste = std::size_t{64} << 10;  // characters
inline constexpr std::size_t kLongestCell = 20;                      // what a box takes

/// A block of cells, as a spreadsheet copies it: windows-1252, without line ends and tabs.
struct CellBlock {
  std::vector<std::vector<std::string>> rows;

  std::size_t Columns() const;  // of the longest row
};

/// True for text of more than one cell. Otherwise it is meant for a box.
bool IsBlock(std::string_view text);

/// Splits text into cells: at tabs or, without any, at ";". The end of the last line may be
/// missing. In a block of several columns an empty line has no cells, and such lines at the end do
/// not count; in a block of one column it is an empty cell. Text longer than `kLargestPaste` is cut
/// there.
CellBlock ReadBlock(std::string_view text);

/// Says how much was pasted.
std::string PastedMessage(const CellBlock& block, const LanguageTexts& texts);

/// Joins cells by tabs; each row ends in CR LF.
std::string WriteBlock(const CellBlock& block);

/// Why nothing was pasted.
struct PasteRefusal {
  std::int32_t text = 0;
  std::array<std::string, 4> values{};  // of the text's placeholders
  std::optional<Refusal> why{};         // of a cell, if a box would have refused it

  std::string MessageIn(const LanguageTexts& texts) const;
};

/// Where a cell is in its block, from 0.
struct CellPlace {
  std::size_t row = 0;
  std::size_t column = 0;
};

/// Refuses a cell. `why` needs no typed text and may have no hint.
PasteRefusal BadCell(const CellPlace& place, std::string_view cell, std::optional<Refusal> why);

/// Refuses a block that is larger than `rows` and `columns`; nothing if it is not.
std::optional<PasteRefusal> TooLarge(const CellBlock& block, std::size_t rows, std::size_t columns);

}  // namespace zek
