#include "editors/ExceptionEditor.h"

#include <algorithm>
#include <utility>

#include "formats/ExceptionText.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::size_t NextRow(std::size_t row) { return (row + 1) % kExceptionRows; }

struct DateAndTime {
  ExceptionBox date;
  ExceptionBox time;
};
constexpr DateAndTime kStartBoxes{ExceptionBox::DateOn, ExceptionBox::Start};
constexpr DateAndTime kStopBoxes{ExceptionBox::DateOff, ExceptionBox::Stop};

bool IsOf(const DateAndTime& boxes, ExceptionBox box) {
  return box == boxes.date || box == boxes.time;
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

void ShowWrong(const std::vector<WrongEntry>& wrong, Prompts& prompts, const LanguageTexts& texts) {
  for (const WrongEntry& each : wrong)
    prompts.Show(Icon::Information, Message(texts.Text(each.text), {each.typed}));
}

ExceptionEditor::ExceptionEditor(std::span<const std::string> lines, LineOwner owner,
                                 char decimalSeparator, Access access, Clock now)
    : lines_(lines.begin(), lines.end()),
      owner_(std::move(owner)),
      decimalSeparator_(decimalSeparator),
      access_(owner_.name.empty() ? Access::ViewOnly : access),
      now_(std::move(now)) {
  ExceptionReading reading = ReadExceptions(lines_, owner_);
  history_ = decltype(history_)(reading.table);
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
}

void ExceptionEditor::FocusRow(std::size_t row) { row_ = std::min(row, kExceptionRows - 1); }

ExceptionTexts ExceptionEditor::RowTexts(std::size_t row) const {
  return TextsOf(Table().rows.at(row), decimalSeparator_);
}

Moment ExceptionEditor::TakeMoment(const std::string& date, const std::string& time,
                                   std::vector<WrongEntry>& wrong) const {
  const std::optional<Moment> day = TypedExceptionDate(date);
  const std::optional<Moment> timeOfDay = TypedExceptionTime(time);
  if (!day) wrong.push_back({text::kDateWrong, date});
  if (!timeOfDay) wrong.push_back({text::kTimeWrong, time});
  if (day && timeOfDay) return *day + *timeOfDay;
  const Moment now = now_();
  const int currentTime = TimeOfDay(now);
  return day.value_or(now - currentTime) + timeOfDay.value_or(currentTime);
}

std::vector<WrongEntry> ExceptionEditor::Enter(ExceptionFocus at, const ExceptionTexts& typed) {
  if (ViewOnly()) return {};
  const ExceptionTexts shown = RowTexts(at.row);
  const auto changed = [&](ExceptionBox box) { return typed[box] != shown[box]; };
  std::vector<WrongEntry> wrong;
  // Leaving a box unchanged must not change its value, which may have more digits than are shown.
  const bool isStart = IsOf(kStartBoxes, at.box);
  if (isStart || IsOf(kStopBoxes, at.box)) {
    const auto [date, time] = isStart ? kStartBoxes : kStopBoxes;
    if (!changed(date) && !changed(time)) return {};
    history_.Change(at, [&](ExceptionTable& table) {
      TakeMoments(table.rows.at(at.row), at.box, typed, wrong);
    });
  } else if (changed(at.box)) {
    history_.Change(at, [&](ExceptionTable& table) {
      OvcRow& row = table.rows.at(at.row);
      (at.box == ExceptionBox::ValueOn ? row.valueOn : row.valueOff) = TypedValue(typed[at.box]);
    });
  }
  return wrong;
}

void ExceptionEditor::TakeMoments(OvcRow& row, ExceptionBox box, const ExceptionTexts& typed,
                                  std::vector<WrongEntry>& wrong) const {
  const bool isStart = IsOf(kStartBoxes, box);
  const auto [date, time] = isStart ? kStartBoxes : kStopBoxes;
  if (isStart && typed[date].empty()) {
    row = {};
    return;
  }
  (isStart ? row.start : row.stop) = TakeMoment(typed[date], typed[time], wrong);
  row.used = true;
  if (isStart && row.stop == 0) row.stop = row.start;
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
