#include "findings/Findings.h"

#include <algorithm>
#include <map>

#include "findings/Effect.h"
#include "findings/FindingList.h"
#include "forecast/MomentText.h"
#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/LineNumbers.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

using enum FindingKind;

std::string PlaceOfLine(std::string_view kind, std::string_view line) {
  return PlaceOf(kind, LineNumber(line));
}

// `full` is the reason of the first line that finds no place; all after it are over the limit.
template <class Refused>
void FindUnread(FindingList& list, std::string_view kind, const std::vector<std::string>& unread,
                const std::vector<Refused>& refused, std::int32_t full, std::size_t limit) {
  std::string_view firstOver;
  for (const Refused& each : refused)
    if (each.text == full && firstOver.empty()) firstOver = each.line;
  bool over = false;
  for (const std::string& line : unread) {
    over = over || (!firstOver.empty() && line == firstOver);
    if (over) {
      list.Add(OverLimit, PlaceOfLine(kind, line), {std::to_string(limit), line, {}});
    } else {
      list.Add(UnreadLine, PlaceOfLine(kind, line), {line, {}, {}});
    }
  }
}

// The stop value of a line in the "PLT" layout, which has no place for it.
void FindDropped(FindingList& list, const ControlTables& control) {
  constexpr std::size_t dayColumn = 6;
  if (!IsPltName(control.owner.name)) return;
  for (const std::string& line : SplitWeekday(control.weekdayLines, control.owner).own) {
    const std::string_view value = Trim(GetField(FromColumn(line, dayColumn), 3, kFieldMark));
    if (value.empty() || value == kNoValueText) continue;
    list.Add(StopValueDropped, PlaceOfLine("wdc", line), {std::string(value), {}, {}});
  }
}

// What lines of one catalogue have wrong, whoever owns them. `beyond` more had no place.
void FindInLines(FindingList& list, std::string_view kind, const std::vector<std::string>& lines,
                 std::size_t beyond) {
  if (beyond > 0) {
    list.Add(OverLimit, std::string(kind),
             {std::to_string(kMaxCatalogueLines), {}, std::to_string(beyond)});
  }
  std::map<int, std::size_t> counts;
  std::size_t used = 0;
  for (const std::string& line : lines) {
    if (Trim(line).empty()) continue;
    ++used;
    if (const int number = LineNumber(line); number > 0) ++counts[number];
    if (line.find('*') != std::string::npos) {
      list.Add(StarredLine, PlaceOfLine(kind, line), {line, {}, {}});
    }
  }
  for (const auto& [number, count] : counts) {
    if (count > 1) list.Add(NumberTwice, PlaceOf(kind, number), {std::to_string(count), {}, {}});
  }
  CheckFull(list, std::string(kind), used, kMaxCatalogueLines);
}

void FindOwnerless(FindingList& list, const ControlTables& control) {
  for (const auto& [kind, split] :
       {std::pair("wdc", SplitWeekday(control.weekdayLines, control.owner)),
        std::pair("ovc", SplitExceptions(control.exceptionLines, control.owner))}) {
    for (const std::string& line : split.ownerless)
      list.Add(OwnerlessLine, PlaceOfLine(kind, line), {line, {}, {}});
  }
}

void FindDatesWithoutEffect(FindingList& list, std::span<const ControlTables> controls,
                            DayNumber today) {
  for (const Doubt& doubt : DoubtsOfDates(controls.front().schedule, today)) {
    const bool effect = std::any_of(controls.begin(), controls.end(), [&](const auto& control) {
      return HaveEffect(control.schedule, doubt, today);
    });
    if (!effect) list.Add(DateNoEffect, PlaceOf("sdc", doubt.line));
  }
}

bool CanJudge(const Finding& finding, const KnownCatalogues& known) {
  switch (finding.kind) {
    case TypeUnused:
      return known.weekdays && known.calendar;
    case TypeWithoutRows:
      return known.All();
    case StopWithoutValue:
      return known.weekdays && known.exceptions;  // the exceptions may have the default value
    default:
      return finding.place.starts_with("ovc") ? known.exceptions : known.weekdays;
  }
}

// A number that two lines have names neither of them.
std::vector<Finding> WithoutDoubtful(std::vector<Finding> findings,
                                     const std::vector<std::string>& lines, std::string_view kind) {
  std::map<std::string, int> counts;
  for (const std::string& line : lines) ++counts[PlaceOfLine(kind, line)];
  std::erase_if(findings, [&counts](const Finding& each) {
    const bool proved =
        each.kind == RowNoEffect || each.kind == ExceptionNoEffect || each.kind == DateNoEffect;
    const auto count = counts.find(each.place);
    return proved && count != counts.end() && count->second > 1;
  });
  return findings;
}

}  // namespace

std::string KnownCatalogues::NotJudged(const LanguageTexts& texts) const {
  std::string missing;
  const auto add = [&](bool have, std::int32_t title) {
    if (!have) missing += (missing.empty() ? "" : ", ") + texts.Text(title);
  };
  add(weekdays, text::kTitleWeekdays);
  add(calendar, text::kTitleCalendar);
  add(exceptions, text::kTitleExceptions);
  return missing.empty() ? missing : Message(texts.Text(text::kFindingsNeed), {missing});
}

std::string WithNameOfDay(const std::string& key, const LanguageTexts& texts,
                          const SpecialDayNames& names) {
  const auto* const found = std::find(kDayKeys.begin(), kDayKeys.end(), key);
  if (found == kDayKeys.end()) return key;
  return DayTypeName(static_cast<std::size_t>(found - kDayKeys.begin()), texts, names);
}

std::string Finding::Text(const LanguageTexts& texts, const SpecialDayNames& names) const {
  std::array<std::string, 3> shown = words;
  if (kind == DateTwoTypes || kind == DateTwice || kind == TypeWithoutRows)
    for (std::string& word : shown) word = WithNameOfDay(word, texts, names);
  if (kind == TypeWithoutRows && shown[2] == ValueText({}, {}))
    shown[2] = texts.Text(text::kNoValueShown);
  if (kind == OverLimit && shown[1].empty())
    shown[1] = Message(texts.Text(text::kLinesBeyond), {shown[2]});
  const bool left = kind == ExceptionOver && !shown[1].empty();
  return Message(texts.Text(left ? text::kFindingExceptionLeft : InfoOf(kind).text),
                 {shown[0], shown[1], shown[2]});
}

std::vector<Finding> FindingsOf(const ControlTables& control, const FindingContext& context) {
  FindingList list;
  FindUnread(list, "wdc", control.weekdays.unread, control.weekdays.refused, text::kDayFull,
             kWeekdayRows);
  FindUnread(list, "ovc", control.exceptions.unread, control.exceptions.refused,
             text::kExceptionsFull, kExceptionRows);
  FindDropped(list, control);
  FindInRows(list, control, context);
  FindInExceptions(list, control, context);
  if (control.owner.generation == Generation::Zek2) {
    FindInLines(list, "wdc", control.weekdayLines, control.beyond.weekdays);
    FindInLines(list, "ovc", control.exceptionLines, control.beyond.exceptions);
  }
  std::vector<Finding> found = list.Take();
  std::erase_if(found, [&](const Finding& each) { return !CanJudge(each, control.known); });
  return WithoutDoubtful(WithoutDoubtful(std::move(found), control.weekdayLines, "wdc"),
                         control.exceptionLines, "ovc");
}

std::vector<Finding> SharedFindings(std::span<const ControlTables> controls, bool all,
                                    const FindingContext& context) {
  if (controls.empty()) return {};
  const ControlTables& any = controls.front();
  FindingList list;
  FindUnread(list, "sdc", any.calendar.unread, any.calendar.refused, text::kCalendarCut,
             kCalendarEntries);
  if (any.known.calendar) FindInCalendar(list, any, context);
  FindInLines(list, "sdc", any.calendarLines, any.beyond.calendar);
  if (any.owner.generation == Generation::Zek1) {
    FindInLines(list, "wdc", any.weekdayLines, any.beyond.weekdays);
    FindInLines(list, "ovc", any.exceptionLines, any.beyond.exceptions);
    FindOwnerless(list, any);
  }
  all = all && std::all_of(controls.begin(), controls.end(),
                           [](const auto& control) { return control.known.All(); });
  if (all && context.prove) FindDatesWithoutEffect(list, controls, context.today);
  return WithoutDoubtful(list.Take(), any.calendarLines, "sdc");
}

}  // namespace zek
