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
      rules_{owner_.generation, decimalSeparator, std::move(pickList), std::move(now)},
      access_(owner_.name.empty() ? Access::ViewOnly : access) {
  ExceptionReading reading = ReadExceptions(lines_, owner_);
  history_ = decltype(history_)(reading.table);
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
}

void ExceptionEditor::FocusRow(std::size_t row) { row_ = std::min(row, kExceptionRows - 1); }

// --- What the boxes show ---

std::string ExceptionEditor::CellText(ExceptionFocus at) const {
  return TextsOf(RowOf(at), rules_.decimalSeparator)[at.box];
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
  return !shown.empty() && IsOutside(shown, rules_.values) ? text::kNotInList : 0;
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
  const auto box = zek::FirstBox(RowOf(at), at.box, owner_.generation);
  return box ? std::optional(ExceptionFocus{*box, at.row}) : std::nullopt;
}

// --- Changes ---

std::optional<Refusal> ExceptionEditor::Enter(ExceptionFocus at, std::string_view text) {
  if (ViewOnly()) return std::nullopt;
  std::optional<Refusal> refusal;
  history_.Change(at, [&](ExceptionTable& table) {
    refusal = EnterException(table.rows.at(at.row), at.box, text, rules_);
  });
  return refusal;
}

void ExceptionEditor::Replace(const ExceptionTable& table) {
  if (ViewOnly()) return;
  history_.Change({ExceptionBox::DateOn, row_}, [&](ExceptionTable& now) { now = table; });
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
  return EditedCatalogue{
      BuildExceptions(Table(), owner_, lines_, *options, rules_.decimalSeparator),
      linesLost_,
      {text::kExceptionRetry, text::kExceptionRetryTitle},
      LostStopTimes(Table(), owner_.generation)};
}

}  // namespace zek
