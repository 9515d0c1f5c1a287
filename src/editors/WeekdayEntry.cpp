#include "editors/WeekdayEntry.h"

#include "formats/WeekdayCells.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

std::optional<Refusal> EnterTime(EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                                 std::string_view text) {
  const auto time = TypedTime(text);
  if (!time) return Refusal{text::kTimeWrong, text::kTimeHint, std::string(text), {}};
  WeekdayRow& row = edited.At(cell);
  if (box == WeekdayBox::Stop) {
    row.stop = *time;
    return std::nullopt;
  }
  if (!row.Used() && row.valueOn == 0) edited.unvalued.set(EditedWeekdays::Place(cell));
  row.start = *time;
  return std::nullopt;
}

std::optional<Refusal> EnterValue(EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                                  std::string_view text, const WeekdayRules& rules) {
  const bool isStart = box == WeekdayBox::ValueOn;
  if (!isStart && !rules.hasStopValues) return std::nullopt;
  const auto value = Trim(text).empty() ? kNoValue : TypedValue(text, rules.NamesOf(box));
  if (!value) return Refusal{text::kValueWrong, text::kValueHint, std::string(text), {}};
  WeekdayRow& row = edited.At(cell);
  if (!isStart) {
    row.valueOff = *value;
    return std::nullopt;
  }
  const bool none = *value == kNoValue;
  edited.unvalued.set(EditedWeekdays::Place(cell), none);
  row.valueOn = none ? 0 : *value;
  return std::nullopt;
}

}  // namespace

const PickList& WeekdayRules::NamesOf(WeekdayBox box) const {
  static const PickList none;
  if (box == WeekdayBox::ValueOn) return startValues;
  return box == WeekdayBox::ValueOff ? stopValues : none;
}

std::string BoxText(const EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                    char decimalSeparator) {
  const WeekdayRow& row = edited.At(cell);
  switch (box) {
    case WeekdayBox::Start:
      return TimeText(row.start);
    case WeekdayBox::Stop:
      return TimeText(row.stop);
    case WeekdayBox::ValueOn:
      return edited.IsUnvalued(cell) ? std::string() : ValueOnText(row, decimalSeparator);
    case WeekdayBox::ValueOff:
      break;
  }
  return ValueOffText(row, decimalSeparator);
}

std::optional<Refusal> EnterWeekday(EditedWeekdays& edited, const WeekdayCell& cell, WeekdayBox box,
                                    std::string_view text, const WeekdayRules& rules) {
  // Leaving a box unchanged must not change its value: the text may have fewer digits, and equal
  // days would become different.
  if (text == BoxText(edited, cell, box, rules.decimalSeparator)) return std::nullopt;
  if (box == WeekdayBox::Start || box == WeekdayBox::Stop)
    return EnterTime(edited, cell, box, text);
  return EnterValue(edited, cell, box, text, rules);
}

}  // namespace zek
