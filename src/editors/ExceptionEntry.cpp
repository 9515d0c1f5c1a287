#include "editors/ExceptionEntry.h"

#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

bool IsStart(ExceptionBox box) { return box == ExceptionBox::DateOn || box == ExceptionBox::Start; }
bool IsDate(ExceptionBox box) {
  return box == ExceptionBox::DateOn || box == ExceptionBox::DateOff;
}
bool IsTime(ExceptionBox box) { return box == ExceptionBox::Start || box == ExceptionBox::Stop; }

void MoveStart(OvcRow& row, Moment start) {
  if (row.stopFollows) row.stop = start;
  row.start = start;
}

void EnterStop(OvcRow& row, Moment stop) {
  row.stop = stop;
  row.stopFollows = false;
}

void EnterEmptyDate(OvcRow& row, ExceptionBox box, Generation generation) {
  if (IsStart(box)) {
    row = {};
  } else {
    EnterStop(row, generation == Generation::Zek1 ? 0 : row.StopTime());
  }
}

std::optional<Refusal> EnterDate(OvcRow& row, ExceptionBox box, std::string_view text,
                                 const ExceptionRules& rules) {
  if (Trim(text).empty()) {
    EnterEmptyDate(row, box, rules.generation);
    return std::nullopt;
  }
  const std::optional<Moment> date = TypedExceptionDate(text);
  if (!date)
    return Refusal{text::kDateWrong, text::kDateHint, std::string(text), DateText(rules.now())};
  if (!row.used) {
    row = {.used = true, .start = *date, .stop = *date, .stopFollows = true};
  } else if (IsStart(box)) {
    MoveStart(row, *date + TimeOfDay(row.start));
  } else {
    EnterStop(row, *date + row.StopTime());
  }
  return std::nullopt;
}

std::optional<Refusal> EnterTime(OvcRow& row, ExceptionBox box, std::string_view text,
                                 const ExceptionRules& rules) {
  const std::optional<Moment> time = TypedExceptionTime(text);
  const bool alone = !IsStart(box) && !row.HasStopDate();
  if (!time || (*time == 0 && !Trim(text).empty() && !TakesMidnight(row, box))) {
    return Refusal{text::kTimeWrong, text::kTimeHint, std::string(text),
                   ClockText(TimeOfDay(rules.now()))};
  }
  if (IsStart(box)) {
    MoveStart(row, row.start - TimeOfDay(row.start) + *time);
  } else {
    EnterStop(row, alone ? *time : row.stop - TimeOfDay(row.stop) + *time);
  }
  return std::nullopt;
}

std::optional<Refusal> EnterValue(OvcRow& row, ExceptionBox box, std::string_view text,
                                  const PickList& values) {
  const auto value = Trim(text).empty() ? kNoValue : TypedValue(text, values);
  if (!value) return Refusal{text::kValueWrong, text::kValueHint, std::string(text), {}};
  (box == ExceptionBox::ValueOn ? row.valueOn : row.valueOff) = *value;
  return std::nullopt;
}

}  // namespace

const PickList& ExceptionRules::NamesOf(ExceptionBox box) const {
  static const PickList none;
  return IsDate(box) || IsTime(box) ? none : values;
}

std::optional<ExceptionBox> FirstBox(const OvcRow& row, ExceptionBox box, Generation generation) {
  if (!row.used && box != ExceptionBox::DateOn) return ExceptionBox::DateOn;
  const bool needsDate = generation == Generation::Zek1 && !row.HasStopDate();
  if (box == ExceptionBox::Stop && needsDate) return ExceptionBox::DateOff;
  return std::nullopt;
}

bool TakesMidnight(const OvcRow& row, ExceptionBox box) {
  return box != ExceptionBox::Stop || row.HasStopDate();
}

std::optional<Refusal> EnterException(OvcRow& row, ExceptionBox box, std::string_view text,
                                      const ExceptionRules& rules) {
  // Leaving a box unchanged must not change its value, which may have more digits than are shown.
  if (text == TextsOf(row, rules.decimalSeparator)[box]) return std::nullopt;
  if (FirstBox(row, box, rules.generation)) return std::nullopt;
  if (IsDate(box)) return EnterDate(row, box, text, rules);
  return IsTime(box) ? EnterTime(row, box, text, rules) : EnterValue(row, box, text, rules.values);
}

}  // namespace zek
