#include "picture/SceneWords.h"

#include "forecast/EditedEntries.h"
#include "forecast/MomentText.h"
#include "formats/WeekdayCells.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr std::size_t kDateLength = 10;  // of "2026-12-07T06:30"

bool IsStart(const SwitchSource& source) { return source.kind == SwitchSource::Kind::RowStart; }

bool IsStop(const SwitchSource& source) {
  return source.kind == SwitchSource::Kind::RowStop ||
         source.kind == SwitchSource::Kind::ExceptionStop;
}

bool IsRow(const SwitchSource& source) {
  return IsStart(source) || source.kind == SwitchSource::Kind::RowStop;
}

}  // namespace

std::string TimeOfDayText(int minute) { return TimeText(static_cast<std::int16_t>(minute)); }

BarKind KindOf(const SwitchSource& source, const Schedule& schedule) {
  if (source.kind == SwitchSource::Kind::None) return BarKind::Nothing;
  if (!IsRow(source)) return BarKind::Exception;
  for (std::size_t day = 0; day < kDaysOfType; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      if (schedule.weekdays.days.at(day).at(row).Used() &&
          schedule.weekdayLines.at(day).at(row) == source.line)
        return BarKind::Weekday;
    }
  }
  return BarKind::SpecialDay;
}

std::string SceneWords::Day(DayNumber day) const {
  return DayType(WeekdayOf(day)) + " " + MomentText(StartOf(day)).substr(0, kDateLength);
}

std::string SceneWords::When(Moment moment) const {
  return Day(DayOf(moment)) + " " + TimeOfDayText(TimeOfDay(moment));
}

std::string SceneWords::Value(MaybeValue value) const {
  return value ? value_(*value) : texts_.Text(text::kNoValueShown);
}

std::string SceneWords::Source(const SwitchSource& source, const Schedule& schedule) const {
  const BarKind kind = KindOf(source, schedule);
  std::string name = texts_.Text(text::kByWeekday + static_cast<std::int32_t>(kind));
  if (kind == BarKind::Nothing) return name;
  std::string place = Message(texts_.Text(text::kPlaceOfLine), {name, std::to_string(source.line)});
  if (source.line < 0) {  // an entry without a line
    const bool exception = kind == BarKind::Exception;
    const WeekdayCell cell = CellOfNumber(source.line);
    const std::size_t row = exception ? ExceptionOfNumber(source.line) : cell.row;
    place = Message(texts_.Text(text::kPlaceOfRow),
                    {exception ? name : DayType(cell.day), std::to_string(row + 1)});
  }
  if (IsStart(source)) return Message(texts_.Text(text::kPlaceStart), {place});
  return IsStop(source) ? Message(texts_.Text(text::kPlaceStop), {place}) : place;
}

std::string RuleWords(const Rule& rule, const LanguageTexts& texts) {
  std::string words;
  const auto add = [&](bool on, std::int32_t number) {
    std::string name = texts.Text(number);
    std::erase(name, '&');  // of its key in the window
    if (on) words += (words.empty() ? texts.Text(text::kRuleFrame) + ": " : "; ") + name;
  };
  add(rule.exceptionsCommand, text::kRuleException);
  add(rule.daysBeginAnew, text::kRuleCarry);
  add(rule.missingStopsHold, text::kRuleNoStop);
  add(rule.earlyStopsNextDay, text::kRuleEarly);
  return words.empty() ? words : words + ".";
}

std::vector<std::string> Explanation(const Forecast& forecast, const Schedule& schedule,
                                     Moment moment, const SceneWords& words) {
  const LanguageTexts& texts = words.Texts();
  const Applied applied = forecast.At(moment);
  const DayNumber day = DayOf(moment);
  std::string first = Message(texts.Text(text::kAppliesAt),
                              {words.Day(day), TimeOfDayText(TimeOfDay(moment)),
                               words.Value(applied.value), words.Source(applied.source, schedule)});
  if (const auto since = forecast.LastEvent(moment))
    first += " " + Message(texts.Text(text::kAppliesSince), {words.When(*since)});
  std::vector<std::string> sentences{first};
  const auto next = forecast.NextChange(moment);
  sentences.push_back(next ? Message(texts.Text(text::kNextChange),
                                     {words.When(*next), words.Value(forecast.At(*next).value)})
                           : texts.Text(text::kNoMoreChange));
  if (const DatedType* const entry = forecast.Types().EntryOf(day)) {
    sentences.push_back(
        Message(texts.Text(text::kDayTypeByCalendar), {words.DayType(entry->type)}));
  }
  for (const Applied& beaten : forecast.Beaten(moment)) {
    sentences.push_back(Message(texts.Text(text::kBeatenBy), {words.Source(beaten.source, schedule),
                                                              words.Value(beaten.value)}));
  }
  return sentences;
}

}  // namespace zek
