#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "editors/Entry.h"
#include "editors/PickList.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionTable.h"
#include "formats/Generation.h"

namespace zek {

/// How the texts of an exception table's boxes are written and read.
struct ExceptionRules {
  Generation generation = Generation::Zek1;
  char decimalSeparator = '.';
  PickList values{};
  std::function<Moment()> now{};  // the local date and time

  const PickList& NamesOf(ExceptionBox box) const;
};

/// The box of the row that must be filled before `box`: the start date of an unused row; on a ZEK1,
/// the stop date before a stop time.
std::optional<ExceptionBox> FirstBox(const OvcRow& row, ExceptionBox box, Generation generation);

/// False for a stop time without a stop date: no line holds a stop of 00:00 there.
bool TakesMidnight(const OvcRow& row, ExceptionBox box);

/// Enters what was typed into a box (see `TypedExceptionDate`, `TypedExceptionTime`, `TypedValue`),
/// or returns why not; today or now takes the place of a wrong date or time. Does nothing if the
/// text is there already or another box comes first. An empty start date clears the row, empty stop
/// boxes are no stop, and an empty box has no value. A start date in an unused row begins a new
/// entry: from 00:00, and its stop follows the start until it is entered. On a ZEK1 an empty stop
/// date is no stop.
std::optional<Refusal> EnterException(OvcRow& row, ExceptionBox box, std::string_view text,
                                      const ExceptionRules& rules);

}  // namespace zek
