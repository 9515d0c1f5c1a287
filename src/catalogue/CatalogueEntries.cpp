#include "catalogue/CatalogueEntries.h"

#include <algorithm>
#include <span>
#include <utility>

#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionText.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayText.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kGap = "  ";
constexpr std::size_t kPltDayColumn = 6;  // from 0

using Entries = std::vector<CatalogueEntry>;
using Line = std::span<const std::string, 1>;

// Joins the fields of a line from a column on, without padding and empty fields.
std::string Fields(std::string_view line, std::size_t column) {
  std::string joined;
  for (std::string_view rest = FromColumn(line, column); !rest.empty();) {
    const std::string_view field = TakeField(rest);
    if (!joined.empty() && !field.empty()) joined += kGap;
    joined += field;
  }
  return joined;
}

std::string DayName(std::size_t day, const CatalogueRules& rules) {
  return day < rules.dayNames.size() ? rules.dayNames[day] : std::string(kDayKeys.at(day));
}

// Replaces a date of a built line by the one that the forms show.
void ShowDate(std::string& text, Moment moment, Generation generation) {
  const DateParts date = DateOf(moment);
  std::string built(std::string_view("DD-MON-YYYY").size(), ' ');
  built.resize(PutDate(built, 0, date.year, date.month - 1, date.day, generation));
  for (std::size_t at = 0; (at = text.find(built, at)) != std::string::npos;)
    text.replace(at, built.size(), DateText(moment));
}

std::string TimesAndValues(const WeekdayRow& row, bool plt, char separator) {
  std::string text = ClockText(row.start);
  if (row.stop != kNoTime) text.append(kRangeMark).append(ClockText(row.stop));
  text.resize(2 * kTimeLength + kRangeMark.size(), ' ');
  text.append(kGap).append(FormatNumber(row.valueOn, separator));
  if (!plt) text.append(kGap).append(LineValue(row.valueOff, separator));
  return text;
}

// Returns the field after the start value of a line in the "PLT" layout.
std::string SurplusOf(std::string_view line) {
  const std::string_view value = Trim(GetField(FromColumn(line, kPltDayColumn), 3, kFieldMark));
  return value == kNoValueText ? std::string() : std::string(value);
}

// Each of these functions adds the entries of a line to `entries`; none if the line is unreadable.

void AddWeekday(Entries& entries, CatalogueEntry entry, Line line, const CatalogueRules& rules) {
  const bool plt = rules.shared ? !HasLineName(line.front()) : IsPltName(rules.control);
  // A single line is read like the whole catalogue of a ZEK2, in which every line is the owner's.
  const WeekdayReading reading =
      ReadWeekday(line, {plt ? "PLT" : entry.control, Generation::Zek2, {}});
  if (plt) entry.surplus = SurplusOf(line.front());
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    const WeekdayRow& row = reading.table.days.at(day).front();
    if (!row.Used()) continue;
    entry.day = static_cast<std::int64_t>(day);
    entry.time = row.start;
    entry.says = TimesAndValues(row, plt, rules.decimalSeparator);
    entries.push_back(entry);
  }
}

void AddDates(Entries& entries, CatalogueEntry entry, Line line, const CatalogueRules& rules) {
  const CalendarReading reading = ReadCalendar(line, rules.years, CalendarYears::kFirst);
  if (reading.linesLost > 0) return;
  for (const CalendarEntry& date : reading.table.Used()) {
    entry.day = date.date;
    entry.says = DayName(static_cast<std::size_t>(date.type) - 1, rules);
    entries.push_back(entry);
  }
}

void AddException(Entries& entries, CatalogueEntry entry, Line line, const CatalogueRules& rules) {
  const LineOwner owner{entry.control, rules.generation, {}};
  const ExceptionReading reading = ReadExceptions(line, owner);
  const OvcRow& row = reading.table.rows.front();
  if (!row.used) return;
  // The line is rebuilt, so that equal exceptions give equal texts. If that fails, it is used as
  // read.
  const BuiltLines built =
      BuildExceptions(reading.table, owner, {}, {1, 0}, rules.decimalSeparator);
  const auto* const lines = std::get_if<std::vector<std::string>>(&built);
  const std::string_view told = lines == nullptr ? line.front() : lines->front();
  constexpr std::size_t oldColumn = 20;
  constexpr std::size_t modernColumn = 6;
  entry.says = Fields(told, rules.generation == Generation::Zek2 ? modernColumn : oldColumn);
  ShowDate(entry.says, row.start, rules.generation);
  if (row.HasStopDate()) ShowDate(entry.says, row.stop, rules.generation);
  entry.time = row.start;
  entries.push_back(entry);
}

void AddLine(Entries& entries, const std::string& text, const std::string& control,
             const CatalogueRules& rules) {
  if (Trim(text).empty()) return;
  CatalogueEntry entry;
  entry.control = control;
  entry.number = LineNumber(text);
  entry.starred = text.find('*') != std::string::npos;
  const Line line(&text, 1);
  const std::size_t before = entries.size();
  switch (rules.kind) {
    case Catalogue::Wdc:
      AddWeekday(entries, entry, line, rules);
      break;
    case Catalogue::Sdc:
      AddDates(entries, entry, line, rules);
      break;
    case Catalogue::Ovc:
      AddException(entries, entry, line, rules);
      break;
  }
  if (entries.size() > before) return;
  entry.kind = CatalogueEntry::Kind::Unreadable;
  entry.says =
      Fields(text, std::min(text.find_first_of(" !", text.find_first_not_of(' ')), text.size()));
  entries.push_back(entry);
}

CatalogueEntry ValueEntry(std::string value, const CatalogueRules& rules) {
  std::string number = value;
  std::replace(number.begin(), number.end(), ',', '.');
  if (IsNumeric(number)) value = FormatNumber(Val(number), rules.decimalSeparator);
  CatalogueEntry entry;
  entry.kind = CatalogueEntry::Kind::Value;
  entry.control = LineName(rules.control);
  entry.says = ".DFV = " + value;
  return entry;
}

void MarkTooMany(Entries& entries, const CatalogueRules& rules) {
  std::size_t own = 0;
  for (CatalogueEntry& entry : entries) {
    if (entry.kind != CatalogueEntry::Kind::Entry || entry.control != LineName(rules.control)) {
      continue;
    }
    entry.tooMany = ++own > kExceptionRows;
  }
}

std::string DayText(std::int64_t day, const CatalogueRules& rules) {
  if (rules.kind == Catalogue::Wdc) return DayName(static_cast<std::size_t>(day), rules);
  const CalendarDate date = UnpackDate(static_cast<std::int32_t>(day), CalendarYears::kFirst);
  return IsoDate(date.year, date.month + 1, date.day);
}

// The width of the longest range of days.
std::size_t DaysWidth(const CatalogueRules& rules) {
  if (rules.kind == Catalogue::Wdc) return std::string_view("SD1..SD7").size();
  return 2 * DayText(0, rules).size() + kRangeMark.size();
}

}  // namespace

CatalogueRules RulesOf(const CatalogueId& id, const Settings& settings,
                       const LanguageTexts& texts) {
  std::vector<std::string> dayNames;
  for (std::size_t day = 0; day < kDayKeys.size(); ++day)
    dayNames.push_back(DayTypeName(day, texts, {}));
  return {id.catalogue,
          id.control,
          id.generation,
          id.generation == Generation::Zek1 && id.catalogue != Catalogue::Sdc,
          YearsOf(settings, id.generation),
          settings.DecimalSeparator,
          id.pltControls,
          std::move(dayNames)};
}

std::vector<CatalogueEntry> EntriesOf(const CatalogueContent& content,
                                      const CatalogueRules& rules) {
  Entries entries;
  if (content.dfv) entries.push_back(ValueEntry(*content.dfv, rules));
  const LineOwner owner = rules.Owner();
  const WeekdayOwners weekdayOwners(content.lines, owner);
  for (const std::string& line : content.lines) {
    std::string control;
    if (rules.kind == Catalogue::Wdc) control = weekdayOwners.Of(line);
    if (rules.kind == Catalogue::Ovc) control = ExceptionOwnerOf(line, owner);
    AddLine(entries, line, control, rules);
  }
  if (rules.kind == Catalogue::Ovc) MarkTooMany(entries, rules);
  return entries;
}

bool IsNextDay(const CatalogueRules& rules, std::int64_t before, std::int64_t day) {
  switch (rules.kind) {
    case Catalogue::Wdc:
      return day == before + 1 && day != std::int64_t{kDaysOfType};
    case Catalogue::Sdc:
      return day == NextKey(static_cast<std::int32_t>(before), CalendarYears::kFirst);
    case Catalogue::Ovc:
      break;
  }
  return false;
}

std::string EntryText(const CatalogueEntry& entry, std::int64_t lastDay,
                      const CatalogueRules& rules) {
  constexpr std::size_t nameWidth = 6;
  const auto add = [](std::string& text, const std::string& part, std::size_t width) {
    text.append(part).append(part.size() < width ? width - part.size() : 0, ' ').append(kGap);
  };
  std::string text;
  const bool unreadable = entry.kind == CatalogueEntry::Kind::Unreadable;  // shown as a whole
  if (rules.shared && !unreadable && entry.control != LineName(rules.control)) {
    add(text, entry.control.empty() ? std::to_string(entry.number) : entry.control, nameWidth);
  }
  if (entry.kind == CatalogueEntry::Kind::Entry && rules.kind != Catalogue::Ovc) {
    std::string days = DayText(entry.day, rules);
    if (lastDay != entry.day) days.append(kRangeMark).append(DayText(lastDay, rules));
    add(text, days, DaysWidth(rules));
  }
  text += entry.says;
  if (!entry.surplus.empty()) text.append(kGap).append(entry.surplus);
  return text;
}

}  // namespace zek
