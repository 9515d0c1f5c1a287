#include "editors/WeekdayEditor.h"

#include <algorithm>
#include <utility>

#include "formats/LineNumbers.h"
#include "formats/WeekdayCells.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::size_t NextColumn(std::size_t column) { return (column + 1) % kDaysOfType; }

}  // namespace

WeekdayFocus NextFocus(WeekdayFocus from) {
  switch (from.box) {
    case WeekdayBox::Start:
      return {WeekdayBox::Stop, from.column};
    case WeekdayBox::Stop:
      return {WeekdayBox::ValueOn, from.column};
    case WeekdayBox::ValueOn:
      return {WeekdayBox::ValueOff, from.column};
    case WeekdayBox::ValueOff:
      break;
  }
  return {WeekdayBox::Start, NextColumn(from.column)};
}

void ShowRefused(const RefusedLine& refused, Prompts& prompts, const LanguageTexts& texts) {
  const std::string message = texts.Text(refused.text);
  if (refused.text == text::kDayFull) {
    prompts.Show(Icon::None, message);
  } else if (refused.text == text::kLinesOwnerless) {
    prompts.Show(Icon::Information,
                 Message(message, {std::to_string(refused.lines), refused.line}));
  } else {
    prompts.Show(Icon::Information, message + " (" + refused.line + ")");
  }
}

WeekdayEditor::WeekdayEditor(std::span<const std::string> lines, LineOwner owner,
                             char decimalSeparator, Access access)
    : lines_(lines.begin(), lines.end()),
      owner_(std::move(owner)),
      decimalSeparator_(decimalSeparator),
      access_(access) {
  WeekdayReading reading = ReadWeekday(lines_, owner_);
  history_ = decltype(history_)(reading.table);
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
}

bool WeekdayEditor::HasStopValues() const { return !IsPltName(owner_.name); }

void WeekdayEditor::ShowType(std::size_t type) { type_ = std::min<std::size_t>(type, 1); }

void WeekdayEditor::ShowRow(std::size_t row) { row_ = std::min(row, kWeekdayRows - 1); }

void WeekdayEditor::FocusColumn(std::size_t column) { column_ = std::min(column, kDaysOfType - 1); }

std::string WeekdayEditor::TypeCaption(std::size_t type, const LanguageTexts& texts) const {
  const auto number = type == 0 ? text::kWeekdays : text::kSpecialDays;
  return texts.Text(number) + " (" + std::to_string(Table().UsedRows(type)) + ")";
}

std::string WeekdayEditor::StartText(std::size_t column) const {
  return TimeText(Cells(column).start);
}

std::string WeekdayEditor::StopText(std::size_t column) const {
  return TimeText(Cells(column).stop);
}

std::string WeekdayEditor::ValueOnText(std::size_t column) const {
  return zek::ValueOnText(Cells(column), decimalSeparator_);
}

std::string WeekdayEditor::ValueOffText(std::size_t column) const {
  return zek::ValueOffText(Cells(column), decimalSeparator_);
}

template <class Edit>
void WeekdayEditor::Change(WeekdayFocus at, Edit edit) {
  history_.Change({type_, row_, at}, [&](WeekdayTable& table) {
    edit(table.days[type_ * kDaysOfType + at.column][row_]);
  });
}

std::optional<WeekdayFocus> WeekdayEditor::ShowPlace(const std::optional<WeekdayPlace>& place) {
  if (!place) return std::nullopt;
  ShowType(place->type);
  ShowRow(place->row);
  FocusColumn(place->focus.column);
  return place->focus;
}

void WeekdayEditor::EnterStart(std::size_t column, std::string_view text) {
  if (ViewOnly()) return;
  const auto time = TypedTime(text);
  if (time) Change({WeekdayBox::Start, column}, [&](WeekdayRow& row) { row.start = *time; });
}

void WeekdayEditor::EnterStop(std::size_t column, std::string_view text) {
  if (ViewOnly()) return;
  const auto time = TypedTime(text);
  if (time) Change({WeekdayBox::Stop, column}, [&](WeekdayRow& row) { row.stop = *time; });
}

// Leaving a box unchanged must not change its value: the text may have fewer digits, and equal days
// would become different.
void WeekdayEditor::EnterValueOn(std::size_t column, std::string_view text) {
  if (ViewOnly() || text == ValueOnText(column)) return;
  Change({WeekdayBox::ValueOn, column}, [&](WeekdayRow& row) { row.valueOn = TypedValueOn(text); });
}

void WeekdayEditor::EnterValueOff(std::size_t column, std::string_view text) {
  if (ViewOnly() || !HasStopValues() || text == ValueOffText(column)) return;
  Change({WeekdayBox::ValueOff, column},
         [&](WeekdayRow& row) { row.valueOff = TypedValueOff(text); });
}

std::size_t WeekdayEditor::Copy() {
  if (ViewOnly()) return column_;
  const WeekdayRow copied = Cells(column_);
  column_ = NextColumn(column_);
  Change({WeekdayBox::Start, column_}, [&](WeekdayRow& row) { row = copied; });
  return column_;
}

std::size_t WeekdayEditor::Erase() {
  if (ViewOnly()) return column_;
  Change({WeekdayBox::Start, column_}, [](WeekdayRow& row) { row = {}; });
  column_ = NextColumn(column_);
  return column_;
}

std::optional<EditedCatalogue> WeekdayEditor::Edited() const {
  if (ViewOnly()) return std::nullopt;
  return EditedCatalogue{
      BuildWeekday(Table(), owner_, lines_, BuildStart::Afresh, decimalSeparator_),
      linesLost_,
      {text::kWeekdayRetry, text::kWeekdayRetryTitle},
      {}};
}

}  // namespace zek
