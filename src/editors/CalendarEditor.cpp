#include "editors/CalendarEditor.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "formats/CalendarNames.h"
#include "formats/Holidays.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr int kSunday = 6;  // of the columns

std::chrono::sys_days DaysOf(const CalendarDate& date) {
  return std::chrono::year_month_day{std::chrono::year{date.year},
                                     std::chrono::month{static_cast<unsigned>(date.month) + 1},
                                     std::chrono::day{static_cast<unsigned>(date.day)}};
}

int Distance(CalendarMove move) {
  switch (move) {
    case CalendarMove::Left:
      return -1;
    case CalendarMove::Right:
      return 1;
    case CalendarMove::Up:
      return -kDaysOfWeek;
    case CalendarMove::Down:
      return kDaysOfWeek;
    case CalendarMove::Home:
    case CalendarMove::End:
      break;
  }
  return 0;
}

}  // namespace

DayColour CalendarCell::Colour() const {
  if (selected) return DayColour::Selected;
  return free ? DayColour::Free : DayColour::Ordinary;
}

void ShowRefused(const RefusedDates& refused, Prompts& prompts, const LanguageTexts& texts) {
  const std::string message = texts.Text(refused.text);
  if (refused.text == text::kDayTypeUnknown) {
    prompts.Show(Icon::Information, message + " (" + refused.line + ")");
  } else if (refused.text == text::kCalendarCut) {
    prompts.Show(Icon::Information,
                 Message(message, {std::to_string(kCalendarEntries), refused.number}));
  } else {
    prompts.Show(Icon::Information, Message(message, {refused.number}));
  }
}

CalendarEditor::CalendarEditor(std::span<const std::string> lines, const LineOwner& owner,
                               const CalendarYears& years, const CalendarDate& today, Access access)
    : layout_(EmptyCalendarLayout(owner.name)),
      years_(years),
      today_(today),
      access_(access),
      history_(CalendarTable(today.year)),
      month_(today.month),
      cursor_(today.day) {
  CalendarReading reading = ReadCalendar(lines, years_, today.year);
  history_ = decltype(history_)(reading.table);
  refused_ = std::move(reading.refused);
  linesLost_ = reading.linesLost;
  layout_ = reading.layout.value_or(layout_);
}

// --- Display ---

int CalendarEditor::ColumnOf(const CalendarDate& date) {
  return static_cast<int>(std::chrono::weekday{DaysOf(date)}.iso_encoding()) - 1;
}

int CalendarEditor::FirstColumn() const { return ColumnOf(DateOf(1)); }

std::optional<int> CalendarEditor::DayAt(int row, int column) const {
  if (row < 0 || column < 0 || column >= kDaysOfWeek) return std::nullopt;
  const int day = row * kDaysOfWeek + column - FirstColumn() + 1;
  return day >= 1 && day <= Days() ? std::optional(day) : std::nullopt;
}

void CalendarEditor::Leave() {
  anchor_.reset();
  dragging_ = false;
  cursor_ = std::min(cursor_, Days());
}

void CalendarEditor::ShowYear(int year) {
  year_ = std::clamp(year, 0, kCalendarYears - 1);
  Leave();
}

void CalendarEditor::ShowMonth(int month) {
  month_ = std::clamp(month, 0, kMonthsOfYear - 1);
  Leave();
}

bool CalendarEditor::Step(int months) {
  const int target = year_ * kMonthsOfYear + month_ + months;
  if (target < 0 || target >= kCalendarYears * kMonthsOfYear) return false;
  year_ = target / kMonthsOfYear;
  month_ = target % kMonthsOfYear;
  Leave();
  return true;
}

void CalendarEditor::ShowDate(const CalendarDate& date) {
  const int year = date.year - Table().BaseYear();
  if (year < 0 || year >= kCalendarYears) return;
  ShowYear(year);
  ShowMonth(date.month);
  cursor_ = std::clamp(date.day, 1, Days());
}

CalendarCell CalendarEditor::CellOn(const CalendarDate& date, const LanguageTexts& texts) const {
  CalendarCell cell;
  cell.number = std::to_string(date.day);
  cell.type = DayTypeAbbreviation(Table().TypeOn(date), texts);
  cell.holiday = IsHoliday(date, otherYears_);
  cell.free = cell.holiday || ColumnOf(date) == kSunday;
  if (anchor_) {
    const auto one = DaysOf(*anchor_);
    const auto other = DaysOf(DateOf(cursor_));
    cell.selected = DaysOf(date) >= std::min(one, other) && DaysOf(date) <= std::max(one, other);
  }
  cell.today = date == today_;
  return cell;
}

std::string CalendarEditor::TypeCaption(int type, const LanguageTexts& texts) const {
  std::string caption = DayTypeCaption(type, texts);
  if (type <= kDaysOfWeek) return caption;
  return WithDayName(caption, static_cast<std::size_t>(type - kDaysOfWeek - 1), names_);
}

std::string CalendarEditor::MonthText(const LanguageTexts& texts) const {
  return MonthName(DateOf(1), texts);
}

std::string CalendarEditor::CellName(int day, const LanguageTexts& texts) const {
  const CalendarCell cell = Cell(day, texts);
  const CalendarDate date = DateOf(day);
  std::string name = DateName(date, ColumnOf(date), texts);
  const auto add = [&name](const std::string& part) { name.append(", ").append(part); };
  if (const auto type = Table().TypeOn(date); type != kNoDayType) {
    add(type > kDaysOfWeek ? TypeCaption(type, texts) : SpokenDayType(type, texts));
  }
  if (IsHoliday(date, otherYears_)) add(texts.Text(text::kSpokenHoliday));
  if (cell.today) add(texts.Text(text::kSpokenToday));
  if (cell.selected) add(texts.Text(text::kSpokenSelected));
  return name;
}

// --- Selection ---

void CalendarEditor::ChooseType(int type) {
  type_ = static_cast<std::int16_t>(std::clamp(type, 0, kCalendarDayTypes));
}

std::optional<DayRun> CalendarEditor::Selection() const {
  if (!anchor_) return std::nullopt;
  const auto away = static_cast<int>((DaysOf(*anchor_) - DaysOf(DateOf(1))).count()) + 1;
  return DayRun{std::min(away, cursor_), std::max(away, cursor_)};
}

void CalendarEditor::Press(std::optional<int> day) {
  dragging_ = day.has_value() && type_.has_value();
  if (!day) return;
  anchor_ = dragging_ ? std::optional(DateOf(*day)) : std::nullopt;
  cursor_ = *day;
}

void CalendarEditor::Drag(std::optional<int> day) {
  if (dragging_ && day) cursor_ = *day;
}

void CalendarEditor::Release(std::optional<int> day, Prompts& prompts, const LanguageTexts& texts) {
  if (!dragging_) return;
  if (!day) return CancelDrag();
  Drag(day);
  dragging_ = false;
  Apply(prompts, texts);
}

void CalendarEditor::CancelDrag() {
  if (!std::exchange(dragging_, false)) return;
  cursor_ = anchor_ ? anchor_->day : cursor_;
  anchor_.reset();
}

void CalendarEditor::MoveCursor(CalendarMove move, bool extend) {
  dragging_ = false;
  const auto start = anchor_.value_or(DateOf(cursor_));
  if (move == CalendarMove::Home) {
    cursor_ = 1;
  } else if (move == CalendarMove::End) {
    cursor_ = Days();
  } else {
    MoveBeyond(cursor_ + Distance(move));
  }
  anchor_ = extend ? std::optional(start) : std::nullopt;
}

// Puts the cursor on a day that may be in the month before or after; the cursor does not leave the
// six years.
void CalendarEditor::MoveBeyond(int day) {
  const int days = Days();
  if (day < 1) {
    if (Last()) cursor_ = Days() + day;
  } else if (day > days) {
    if (Next()) cursor_ = day - days;
  } else {
    cursor_ = day;
  }
}

// --- Changes ---

void CalendarEditor::Apply(Prompts& prompts, const LanguageTexts& texts) {
  if (ViewOnly() || !type_) return;
  CalendarDate first = anchor_.value_or(DateOf(cursor_));
  CalendarDate last = DateOf(cursor_);
  if (DaysOf(last) < DaysOf(first)) std::swap(first, last);
  for (const CalendarDate& end : {first, last})
    if (type_ != kNoDayType && !years_.Has(end.year)) return TellYear(end.year, prompts, texts);
  bool room = true;
  history_.Change({year_, month_, cursor_, anchor_},
                  [&](CalendarTable& table) { room = table.Give(first, last, *type_); });
  if (room) return;
  prompts.Show(Icon::Information,
               Message(texts.Text(text::kCalendarFull), {std::to_string(kCalendarEntries)}));
}

void CalendarEditor::Replace(const CalendarTable& table) {
  if (ViewOnly()) return;
  history_.Change({year_, month_, cursor_, anchor_}, [&](CalendarTable& now) { now = table; });
}

bool CalendarEditor::ShowPlace(const std::optional<CalendarPlace>& place) {
  if (!place) return false;
  ShowYear(place->year);
  ShowMonth(place->month);
  cursor_ = place->cursor;
  anchor_ = place->anchor;
  return true;
}

void CalendarEditor::TellYear(int year, Prompts& prompts, const LanguageTexts& texts) const {
  const bool fourDigits = years_.generation == Generation::Zek2;
  prompts.Show(
      Icon::Information,
      Message(texts.Text(text::kCalendarYear),
              {std::to_string(year), std::to_string(CalendarYears::kFirst),
               std::to_string(years_.Last()), fourDigits ? "SDCLastYear" : "SDCLastTwoDigitYear",
               std::to_string(fourDigits ? years_.lastYear : years_.lastTwoDigitYear)}));
}

std::optional<EditedCatalogue> CalendarEditor::Edited() const {
  if (ViewOnly()) return std::nullopt;
  return EditedCatalogue{
      LinesOf(Table()), linesLost_, {text::kWeekdayRetry, text::kWeekdayRetryTitle}, {}};
}

}  // namespace zek
