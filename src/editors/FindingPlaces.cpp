#include "editors/FindingPlaces.h"

#include <algorithm>

#include "catalogue/CatalogueTitle.h"
#include "forecast/MomentText.h"
#include "formats/CalendarNames.h"
#include "formats/CatalogueFields.h"
#include "formats/ExceptionCells.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Numbers.h"

namespace zek {
namespace {

using enum FindingKind;

std::string TableOf(const Finding& finding) {
  return finding.place.substr(0, finding.place.find(' '));
}

// What stands behind the table: a number, a day's key, or nothing.
std::string Behind(const Finding& finding) {
  const std::size_t blank = finding.place.find(' ');
  return blank == std::string::npos ? "" : finding.place.substr(blank + 1);
}

int NumberOf(const std::string& text) { return static_cast<int>(Val(text)); }

std::optional<std::size_t> DayOfKey(std::string_view key) {
  const auto* const found = std::find(kDayKeys.begin(), kDayKeys.end(), key);
  if (found == kDayKeys.end()) return std::nullopt;
  return static_cast<std::size_t>(found - kDayKeys.begin());
}

// The word of a finding that is a date it is about.
std::optional<std::size_t> DateWord(FindingKind kind) {
  switch (kind) {
    case DateTwoTypes:
    case DateTwice:
    case CalendarEnds:
      return 0;
    case HolidayMissing:
    case TypeWithoutRows:
      return 1;
    default:
      return std::nullopt;
  }
}

// The word that is the number of another entry.
std::optional<std::size_t> NumberWord(FindingKind kind) {
  if (kind == ExceptionsOverlap) return 0;
  const bool rows = kind == RowsOverlap || kind == RowsOverlapSame || kind == RowsEqual;
  return rows ? std::optional<std::size_t>(1) : std::nullopt;
}

template <class Each>
void ForCells(const Schedule& schedule, int number, Each each) {
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row)
      if (schedule.weekdayLines.at(day).at(row) == number) each(WeekdayCell{day, row});
  }
}

}  // namespace

int NumberIn(const Finding& finding) { return NumberOf(Behind(finding)); }

std::optional<Catalogue> CatalogueOf(const Finding& finding) {
  const std::string table = TableOf(finding);
  if (table == "wdc") return Catalogue::Wdc;
  if (table == "sdc") return Catalogue::Sdc;
  if (table == "ovc") return Catalogue::Ovc;
  return std::nullopt;
}

std::string FindingView::DayTypeText(const std::string& key) const {
  return WithNameOfDay(key, texts, names);
}

std::string FindingView::RowText(int number) const {
  const WeekdayCell first = CellOfNumber(number);
  std::size_t last = first.day;
  ForCells(schedule, number, [&last](const WeekdayCell& cell) { last = cell.day; });
  std::string days = DayTypeName(first.day, texts, names);
  if (last > first.day) days += "-" + DayTypeName(last, texts, names);
  return Message(texts.Text(text::kPlaceOfRow), {days, std::to_string(first.row + 1)});
}

std::string FindingView::DatesText(int number) const {
  const DayNumber first = DateOfNumber(number);
  DayNumber last = first;
  for (const DatedType& dated : schedule.calendar)
    if (dated.line == number) last = std::max(last, dated.day);
  const std::string from = DateText(StartOf(first));
  return last == first ? from : from + ".." + DateText(StartOf(last));
}

std::string FindingView::PlaceText(const Finding& finding) const {
  const auto table = CatalogueOf(finding);
  if (!table) return DayTypeText(finding.place);
  const std::string behind = Behind(finding);
  if (behind.empty()) return texts.Text(KindTitle(*table));
  const int number = NumberIn(finding);
  if (number == 0) return DayTypeText(behind);
  if (number > 0) return Message(texts.Text(text::kCatalogueLine), {behind});
  if (*table == Catalogue::Wdc) {
    return finding.kind == StartNotEntered
               ? Message(texts.Text(text::kPlaceOfRow),
                         {DayTypeName(CellOfNumber(number).day, texts, names),
                          std::to_string(CellOfNumber(number).row + 1)})
               : RowText(number);
  }
  if (*table == Catalogue::Sdc) return DatesText(number);
  return Message(texts.Text(text::kPlaceOfRow), {texts.Text(text::kTitleExceptions),
                                                 std::to_string(ExceptionOfNumber(number) + 1)});
}

ShownFinding FindingView::Show(const Finding& finding) const {
  ShownFinding shown{finding.kind, PlaceText(finding), {}, {catalogue, {}, {}, {}}};
  const int number = NumberIn(finding);
  if (catalogue == Catalogue::Wdc) {
    const auto day = DayOfKey(CatalogueOf(finding) ? Behind(finding) : finding.place);
    if (number < 0) shown.leads.cell = CellOfNumber(number);
    if (day) shown.leads.cell = WeekdayCell{*day, 0};
  } else if (catalogue == Catalogue::Ovc) {
    if (number < 0) shown.leads.exception = ExceptionOfNumber(number);
  } else {
    if (number < 0) shown.leads.date = DateOfNumber(number);
    if (const auto word = DateWord(finding.kind))
      shown.leads.date = ParseDay(finding.words.at(*word));
  }
  Finding inWords = finding;
  if (const auto word = NumberWord(finding.kind)) {
    const int other = NumberOf(finding.words.at(*word));
    const std::size_t row =
        catalogue == Catalogue::Ovc ? ExceptionOfNumber(other) : CellOfNumber(other).row;
    inWords.words.at(*word) = std::to_string(row + 1);
  }
  shown.text = inWords.Text(texts, names);
  return shown;
}

std::vector<std::string> FindingView::CellsOf(const Finding& finding) const {
  Finding same = finding;
  // Another entry is the same one after its first day was taken from it.
  if (const auto word = NumberWord(finding.kind); word && catalogue == Catalogue::Wdc) {
    const WeekdayCell other = CellOfNumber(NumberOf(finding.words.at(*word)));
    same.words.at(*word) = std::to_string(other.row);
  }
  // These are only more or less so.
  if (finding.kind == CalendarEnds || finding.kind == NearlyFull) same.words = {};
  std::string said(InfoOf(finding.kind).code);
  for (const std::string& word : same.words) said += "\t" + word;
  std::vector<std::string> cells;
  const auto add = [&](const std::string& cell) { cells.push_back(said + "\t" + cell); };
  const int number = NumberIn(finding);
  const bool row = number < 0 && CatalogueOf(finding) == Catalogue::Wdc;
  const bool date = number < 0 && CatalogueOf(finding) == Catalogue::Sdc;
  if (row) {
    ForCells(schedule, number, [&add](const WeekdayCell& cell) {
      add(std::to_string(cell.day) + "/" + std::to_string(cell.row));
    });
  }
  for (const DatedType& dated : schedule.calendar)
    if (date && dated.line == number) add(std::to_string(dated.day));
  if (cells.empty()) add(finding.place);
  return cells;
}

}  // namespace zek
