#pragma once

#include <variant>

#include "editors/ExceptionEntry.h"
#include "paste/CellBlock.h"

namespace zek {

/// A box of the exception editor.
struct ExceptionBoxAt {
  ExceptionBox box = ExceptionBox::DateOn;
  std::size_t row = 0;
};

/// The boxes from `first` to `last`, which lies in the same or a later row and column of boxes.
CellBlock CopyBoxes(const ExceptionTable& table, const ExceptionBoxAt& first,
                    const ExceptionBoxAt& last, const ExceptionRules& rules);

/// Enters a block as if its cells were typed along each row, beginning at a box; its rows go to the
/// following exceptions. A cell that is not there leaves its box as it is. A text for a box before
/// which another one must be filled is refused.
std::variant<ExceptionTable, PasteRefusal> PasteBoxes(ExceptionTable table,
                                                      const ExceptionBoxAt& at,
                                                      const CellBlock& block,
                                                      const ExceptionRules& rules);

}  // namespace zek
