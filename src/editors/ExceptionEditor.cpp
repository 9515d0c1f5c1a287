#include "editors/ExceptionEditor.h"

#include <algorithm>
#include <utility>

#include "formats/ExceptionText.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

std::size_t NextRow(std::size_t row) { return (row + 1) % kExceptionRows; }

bool IsStart(ExceptionBox box) { return box == ExceptionBox::DateOn || box == ExceptionBox::Start; }
bool IsDate(ExceptionBox box) {
  return box == ExceptionBox::DateOn || box == ExceptionBox::DateOff;
}
bool IsTime(ExceptionBox box) { return box == ExceptionBox::Start || box == ExceptionBox::Stop; }

// A stop time without a date is on the start's date.
SwitchTimes TimesOf(const OvcRow& row) {
  SwitchTimes times{row.start, {}};
  if (row.HasStopDate()) {
    times.stop = row.stop;
  } else if (row.stop != 0) {
    times.stop = row.start - TimeOfDay(row.start) + row.StopTime();
  }
  return times;
}

// Moves the start; a stop that is equal to it was never entered, and follows.
void MoveStart(OvcRow& row, Moment start) {
  if (row.stop == row.start) row.stop = start;
  row.start = start;
}

}  // namespace

ExceptionFocus NextFocus(ExceptionFocus from) {
  if (from.box == ExceptionBox::ValueOff) return {ExceptionBox::DateOn, NextRow(from.row)};
  return {static_cast<ExceptionBox>(static_cast<int>(from.box) + 1), from.row};
}

void ShowRefused(const RefusedException& refused, Prompts& prompts, const LanguageTexts& texts) {
  const std::string message = texts.Text(refused.text);
  const bool full = refused.text == text::kExceptionsFull;
  prompts.Show(Icon::Information, full ? message : message + " (" + refused.line + ")");
}

ExceptionEditor::ExceptionEditor(std::span<const std::string> lines, LineOwner owner,
                                 char decimalSeparator, PickList pickList, Access access, Clock now)
    : lines_(lines.begin(), lines.end()),
      owner_(std::move(owner)),
      decimalSeparator_(decimalSeparator),
      pickList_(std::move(pickList)),
      access_(owner_.name.empty() ? Access::ViewOnly : access),
      now_(std::move(now)) {
  ExceptionReading reading = ReadExceptions(lines_, owner_);
  history_ = decltype(history_)(reading.table);
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
}

void ExceptionEditor::FocusRow(std::size_t row) { row_ = std::min(row, kExceptionRows - 1); }

// --- What the boxes show ---

const PickList& ExceptionEditor::NamesOf(ExceptionBox box) const {
  static const PickList none;
  return IsDate(box) || IsTime(box) ? none : pickList_;
}

std::string ExceptionEditor::CellText(ExceptionFocus at) const {
  return TextsOf(RowOf(at), decimalSeparator_)[at.box];
}

std::int32_t ExceptionEditor::MarkOf(ExceptionFocus at) const {
  const OvcRow& row = RowOf(at);
  if (!row.used) return 0;
  const bool stopsFirst = TimesOf(row).StopsFirst();
  switch (at.box) {
    case ExceptionBox::DateOn:
      return TimeMark(at.row);
    case ExceptionBox::Stop:
      return stopsFirst ? text::kStopFirst : 0;
    case ExceptionBox::DateOff:
      return stopsFirst && row.HasStopDate() ? text::kStopFirst : 0;
    case ExceptionBox::Start:
      return 0;
    case ExceptionBox::ValueOn:
    case ExceptionBox::ValueOff:
      break;
  }
  const std::string shown = CellText(at);
  return !shown.empty() && IsOutside(shown, pickList_) ? text::kNotInList : 0;
}

std::int32_t ExceptionEditor::TimeMark(std::size_t row) const {
  std::vector<SwitchTimes> others;
  for (std::size_t other = 0; other < kExceptionRows; ++other) {
    const OvcRow& each = Table().rows.at(other);
    if (other != row && each.used) others.push_back(TimesOf(each));
  }
  return DoubtOf(TimesOf(Table().rows.at(row)), others);
}

std::optional<ExceptionFocus> ExceptionEditor::FirstBox(ExceptionFocus at) const {
  const OvcRow& row = RowOf(at);
  if (!row.used && at.box != ExceptionBox::DateOn) return {{ExceptionBox::DateOn, at.row}};
  const bool needsDate = owner_.generation == Generation::Zek1 && !row.HasStopDate();
  if (at.box == ExceptionBox::Stop && needsDate) return {{ExceptionBox::DateOff, at.row}};
  return std::nullopt;
}

// --- Changes ---

template <class Edit>
void ExceptionEditor::Change(ExceptionFocus at, Edit edit) {
  history_.Change(at, [&](ExceptionTable& table) { edit(table.rows.at(at.row)); });
}

std::optional<Refusal> ExceptionEditor::Enter(ExceptionFocus at, std::string_view text) {
  // Leaving a box unchanged must not change its value, which may have more digits than are shown.
  if (ViewOnly() || text == CellText(at) || FirstBox(at)) return std::nullopt;
  if (IsDate(at.box)) return EnterDate(at, text);
  return IsTime(at.box) ? EnterTime(at, text) : EnterValue(at, text);
}

void ExceptionEditor::EnterEmptyDate(ExceptionFocus at) {
  Change(at, [&](OvcRow& row) {
    if (IsStart(at.box)) {
      row = {};
    } else {
      row.stop = owner_.generation == Generation::Zek1 ? 0 : row.StopTime();
    }
  });
}

std::optional<Refusal> ExceptionEditor::EnterDate(ExceptionFocus at, std::string_view text) {
  if (Trim(text).empty()) {
    EnterEmptyDate(at);
    return std::nullopt;
  }
  const std::optional<Moment> date = TypedExceptionDate(text);
  if (!date) {
    return Refusal{text::kDateWrong, text::kDateHint, std::string(text), DateText(now_())};
  }
  Change(at, [&](OvcRow& row) {
    if (!row.used) {
      row = {.used = true, .start = *date, .stop = *date};
    } else if (IsStart(at.box)) {
      MoveStart(row, *date + TimeOfDay(row.start));
    } else {
      row.stop = *date + row.StopTime();
    }
  });
  return std::nullopt;
}

std::optional<Refusal> ExceptionEditor::EnterTime(ExceptionFocus at, std::string_view text) {
  const OvcRow& old = RowOf(at);
  const std::optional<Moment> time = TypedExceptionTime(text);
  const bool alone = !IsStart(at.box) && !old.HasStopDate();
  // No line holds a stop of 00:00 without a date: it is no stop.
  if (!time || (alone && *time == 0 && !Trim(text).empty())) {
    return Refusal{text::kTimeWrong, text::kTimeHint, std::string(text),
                   ClockText(TimeOfDay(now_()))};
  }
  Change(at, [&](OvcRow& row) {
    if (IsStart(at.box)) {
      MoveStart(row, row.start - TimeOfDay(row.start) + *time);
    } else {
      row.stop = alone ? *time : row.stop - TimeOfDay(row.stop) + *time;
    }
  });
  return std::nullopt;
}

std::optional<Refusal> ExceptionEditor::EnterValue(ExceptionFocus at, std::string_view text) {
  const auto value = Trim(text).empty() ? kNoValue : TypedValue(text, pickList_);
  if (!value) return Refusal{text::kValueWrong, text::kValueHint, std::string(text), {}};
  Change(at, [&](OvcRow& row) {
    (at.box == ExceptionBox::ValueOn ? row.valueOn : row.valueOff) = *value;
  });
  return std::nullopt;
}

std::optional<ExceptionFocus> ExceptionEditor::ShowPlace(
    const std::optional<ExceptionFocus>& place) {
  if (place) FocusRow(place->row);
  return place;
}

std::size_t ExceptionEditor::Erase() {
  if (ViewOnly()) return row_;
  history_.Change({ExceptionBox::DateOn, row_},
                  [this](ExceptionTable& table) { table.rows.at(row_).used = false; });
  row_ = NextRow(row_);
  return row_;
}

std::optional<EditedCatalogue> ExceptionEditor::Edited(const NumberReader& numbers) const {
  if (ViewOnly()) return std::nullopt;
  const auto options = ReadExceptionOptions(numbers, owner_.generation);
  if (!options) return std::nullopt;
  return EditedCatalogue{BuildExceptions(Table(), owner_, lines_, *options, decimalSeparator_),
                         linesLost_,
                         {text::kExceptionRetry, text::kExceptionRetryTitle},
                         LostStopTimes(Table(), owner_.generation)};
}

}  // namespace zek
