#include "editors/WeekdayEditor.h"

#include <algorithm>
#include <utility>

#include "formats/CalendarNames.h"
#include "formats/LineNumbers.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

std::size_t NextColumn(std::size_t column) { return (column + 1) % kDaysOfType; }

// A row with content that is not sent, because it has no start.
bool IsLeftOut(const WeekdayRow& row) { return !row.Used() && row != WeekdayRow{}; }

SwitchTimes TimesOf(const WeekdayRow& row) {
  return {row.start, row.stop == kNoTime ? std::nullopt : std::optional<std::int64_t>(row.stop)};
}

std::string PlaceOf(std::size_t day, std::size_t row, const LanguageTexts& texts,
                    const SpecialDayNames& names) {
  return Message(texts.Text(text::kPlaceOfRow),
                 {DayTypeName(day, texts, names), std::to_string(row + 1)});
}

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
                             char decimalSeparator, const PickList& pickList, Access access)
    : lines_(lines.begin(), lines.end()),
      owner_(std::move(owner)),
      rules_{decimalSeparator, pickList, WithoutDefault(pickList), !IsPltName(owner_.name)},
      access_(access) {
  WeekdayReading reading = ReadWeekday(lines_, owner_);
  history_ = decltype(history_)({reading.table, {}});
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
}

void WeekdayEditor::ShowType(std::size_t type) { type_ = std::min<std::size_t>(type, 1); }

void WeekdayEditor::ShowRow(std::size_t row) { row_ = std::min(row, kWeekdayRows - 1); }

void WeekdayEditor::FocusColumn(std::size_t column) { column_ = std::min(column, kDaysOfType - 1); }

std::string WeekdayEditor::TypeCaption(std::size_t type, const LanguageTexts& texts) const {
  const auto number = type == 0 ? text::kWeekdays : text::kSpecialDays;
  return texts.Text(number) + " (" + std::to_string(Table().UsedRows(type)) + ")";
}

// --- What the boxes show ---

std::string WeekdayEditor::CellText(WeekdayFocus at) const {
  return BoxText(Now(), CellOf(at.column), at.box, rules_.decimalSeparator);
}

std::int32_t WeekdayEditor::MarkOf(WeekdayFocus at) const {
  const WeekdayCell cell = CellOf(at.column);
  const WeekdayRow& row = RowOf(cell);
  const std::string shown = CellText(at);
  if (!row.Used()) {
    const bool isStart = at.box == WeekdayBox::Start;
    return IsLeftOut(row) && (isStart || !shown.empty()) ? text::kRowNotUsed : 0;
  }
  switch (at.box) {
    case WeekdayBox::Start:
      return TimeMark(cell);
    case WeekdayBox::Stop:
      return TimesOf(row).StopsFirst() ? text::kStopFirst : 0;
    case WeekdayBox::ValueOn:
      if (Now().IsUnvalued(cell)) return text::kNoStartValue;
      break;
    case WeekdayBox::ValueOff:
      break;
  }
  return !shown.empty() && IsOutside(shown, NamesOf(at.box)) ? text::kNotInList : 0;
}

std::int32_t WeekdayEditor::TimeMark(const WeekdayCell& cell) const {
  std::vector<SwitchTimes> others;
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    const WeekdayRow& other = RowOf({cell.day, row});
    if (row != cell.row && other.Used()) others.push_back(TimesOf(other));
  }
  return DoubtOf(TimesOf(RowOf(cell)), others);
}

std::string WeekdayEditor::DayName(std::size_t column, const LanguageTexts& texts) const {
  if (type_ == 0) return DayTypeName(column, texts, names_);
  const std::string heading = Message(texts.Text(text::kSpecialDay), {std::to_string(column + 1)});
  return WithDayName(heading, column, names_);
}

std::string WeekdayEditor::PlaceName(const LanguageTexts& texts) const {
  return PlaceOf(type_ * kDaysOfType + column_, row_, texts, names_);
}

std::vector<std::string> WeekdayEditor::Notes(const LanguageTexts& texts) const {
  std::vector<std::string> notes;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      const WeekdayCell cell{day, row};
      const bool used = RowOf(cell).Used();
      const std::int32_t note = used && Now().IsUnvalued(cell)    ? text::kNoStartValue
                                : !used && IsLeftOut(RowOf(cell)) ? text::kRowNotUsed
                                                                  : 0;
      if (note != 0) notes.push_back(PlaceOf(day, row, texts, names_) + ": " + texts.Text(note));
    }
  }
  return notes;
}

std::vector<WeekdayCell> WeekdayEditor::NotEntered() const {
  std::vector<WeekdayCell> cells;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row)
      if (RowOf({day, row}).Used() && Now().IsUnvalued({day, row})) cells.push_back({day, row});
  }
  return cells;
}

WeekdayFocus WeekdayEditor::ShowCell(const WeekdayCell& cell) {
  ShowType(cell.day / kDaysOfType);
  ShowRow(cell.row);
  FocusColumn(cell.day % kDaysOfType);
  return {WeekdayBox::Start, column_};
}

// --- Changes ---

std::optional<WeekdayFocus> WeekdayEditor::ShowPlace(const std::optional<WeekdayPlace>& place) {
  if (!place) return std::nullopt;
  ShowType(place->type);
  ShowRow(place->row);
  FocusColumn(place->focus.column);
  return place->focus;
}

std::optional<Refusal> WeekdayEditor::Enter(WeekdayFocus at, std::string_view text) {
  if (ViewOnly()) return std::nullopt;
  std::optional<Refusal> refusal;
  history_.Change({type_, row_, at}, [&](EditedWeekdays& edited) {
    refusal = EnterWeekday(edited, CellOf(at.column), at.box, text, rules_);
  });
  return refusal;
}

void WeekdayEditor::Replace(const EditedWeekdays& edited) {
  if (ViewOnly()) return;
  history_.Change({type_, row_, {WeekdayBox::Start, column_}},
                  [&](EditedWeekdays& now) { now = edited; });
}

void WeekdayEditor::Put(std::size_t column, const WeekdayRow& row, bool unvalued) {
  EditedWeekdays edited = Now();
  edited.At(CellOf(column)) = row;
  edited.unvalued.set(EditedWeekdays::Place(CellOf(column)), unvalued);
  column_ = column;
  Replace(edited);
}

std::size_t WeekdayEditor::Copy() {
  if (ViewOnly() || column_ + 1 == kDaysOfType) return column_;
  const WeekdayCell copied = CellOf(column_);
  Put(column_ + 1, RowOf(copied), Now().IsUnvalued(copied));
  return column_;
}

std::size_t WeekdayEditor::Erase() {
  if (ViewOnly()) return column_;
  Put(column_, {}, false);
  column_ = NextColumn(column_);
  return column_;
}

std::optional<EditedCatalogue> WeekdayEditor::Edited() const {
  if (ViewOnly()) return std::nullopt;
  return EditedCatalogue{
      BuildWeekday(Table(), owner_, lines_, BuildStart::Afresh, rules_.decimalSeparator),
      linesLost_,
      {text::kWeekdayRetry, text::kWeekdayRetryTitle},
      {}};
}

}  // namespace zek
