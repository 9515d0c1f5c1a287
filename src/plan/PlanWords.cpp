#include "plan/PlanWords.h"

#include <algorithm>
#include <cstdint>

#include "catalogue/CatalogueTitle.h"
#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "formats/ExceptionCells.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr const char* kRange = " .. ";

std::string DayName(std::size_t day, const LanguageTexts& texts) {
  return std::string(Trim(DayTypeAbbreviation(static_cast<int>(day) + 1, texts)));
}

// "Mån-Fre, SD1"
std::string DaysInWords(std::vector<std::size_t> days, const LanguageTexts& texts) {
  std::sort(days.begin(), days.end());
  std::string words;
  for (std::size_t at = 0; at < days.size();) {
    const std::size_t first = at++;
    while (at < days.size() && days[at] == days[at - 1] + 1 && days[at] % kDaysOfType != 0) ++at;
    words.append(words.empty() ? "" : ", ").append(DayName(days[first], texts));
    if (at - first > 1) words.append("-").append(DayName(days[at - 1], texts));
  }
  return words;
}

std::string DateIn(const CalendarDate& date) {
  return IsoDate(date.year, date.month + 1, date.day);
}

std::string MomentIn(Moment moment) {
  return DateText(moment) + " " + ClockText(TimeOfDay(moment));
}

std::string Values(float on, float off, char separator) {
  std::string values = "  " + (on == kNoValue ? "-" : BoxValue(on, separator));
  if (off != kNoValue) values += " / " + BoxValue(off, separator);
  return values;
}

class Words {
 public:
  Words(const LanguageTexts& texts, const SpecialDayNames& names, char separator)
      : texts_(texts), names_(names), separator_(separator) {}

  std::string operator()(const CalendarChange& change) const {
    const bool gives = change.type != kNoDayType;
    std::string words = NameOf(gives ? ChangeKind::GiveType : ChangeKind::TakeType, texts_) + "  " +
                        DateIn(change.first);
    if (!(change.last == change.first)) words += kRange + DateIn(change.last);
    return gives ? words + "  " + DayTypeCaption(change.type, texts_, names_) : words;
  }

  std::string operator()(const ExceptionChange& change) const {
    const OvcRow& row = change.row;
    std::string words =
        NameOf(change.add ? ChangeKind::AddException : ChangeKind::EndException, texts_) + "  " +
        MomentIn(row.start);
    if (!change.add) return words;
    if (row.HasStopDate()) words += kRange + MomentIn(row.stop);
    return words + Values(row.valueOn, row.valueOff, separator_);
  }

  std::string operator()(const WeekdayChange& change) const {
    const WeekdayRow& row = change.row;
    std::string words = NameOf(change.add ? ChangeKind::AddRow : ChangeKind::EndRow, texts_) +
                        "  " + DaysInWords(change.days, texts_) + "  " + ClockText(row.start);
    if (!change.add) return words;
    if (row.stop != kNoTime) words += kRange + ClockText(row.stop);
    return words + Values(row.valueOn, row.valueOff, separator_);
  }

 private:
  const LanguageTexts& texts_;
  const SpecialDayNames& names_;
  char separator_;
};

}  // namespace

std::string NameOf(ChangeKind kind, const LanguageTexts& texts) {
  return texts.Text(text::kSeveralGiveType + static_cast<std::int32_t>(kind));
}

std::string ChangeInWords(const ListedChange& change, const LanguageTexts& texts,
                          const SpecialDayNames& names, char decimalSeparator) {
  return std::visit(Words(texts, names, decimalSeparator), change);
}

std::string ResultOf(const PlanLine& line, const LanguageTexts& texts) {
  return std::string(
      GetField(texts.Text(text::kSeveralWords), static_cast<std::size_t>(line.word), ";"));
}

std::string CatalogueOf(const PlanLine& line, const LanguageTexts& texts) {
  for (const Catalogue kind : kShownCatalogues)
    if (KindText(kind) == line.kind) return texts.Text(KindTitle(kind));
  return {};
}

std::string RemarkOf(const PlanLine& line, const LanguageTexts& texts) {
  std::string remark = line.why;
  if (line.word == PlanWord::Change && line.added + line.removed > 0) {
    remark = Message(texts.Text(text::kPlanCounts),
                     {std::to_string(line.added), std::to_string(line.removed)});
    if (!line.controls.empty()) remark += " (" + line.controls + ")";
    if (!line.why.empty()) remark += ". " + line.why;
  }
  ShowControls(remark);
  return remark;
}

std::string DurationText(std::int64_t seconds) {
  constexpr std::int64_t minute = 60;
  constexpr std::int64_t hour = 60 * minute;
  const auto text = [](std::int64_t number, const char* unit) {
    return std::to_string(number) + " " + unit;
  };
  if (seconds >= hour) return text(seconds / hour, "h ") + text(seconds % hour / minute, "min");
  if (seconds >= minute) return text(seconds / minute, "min ") + text(seconds % minute, "s");
  return text(seconds, "s");
}

}  // namespace zek
