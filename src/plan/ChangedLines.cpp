#include "plan/ChangedLines.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/LineChanges.h"
#include "catalogue/SharedCatalogue.h"
#include "formats/CalendarText.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionText.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayText.h"
#include "lang/TextNumbers.h"
#include "plan/Plan.h"
#include "text/Lines.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

// Puts an entry into a free row unless it is there already; returns false if there is no room.
template <class Rows, class Row, class IsFree>
bool PutIn(Rows& rows, const Row& entry, IsFree isFree) {
  if (std::find(rows.begin(), rows.end(), entry) != rows.end()) return true;
  const auto place = std::find_if(rows.begin(), rows.end(), isFree);
  if (place == rows.end()) return false;
  *place = entry;
  return true;
}

// A table can be read, changed and built; "" is no refusal. Each kind of catalogue has one.
template <class Reading>
class ReadTable {
 public:
  const Lines& Unread() const { return read_.unread; }
  std::size_t Lost() const { return read_.linesLost; }

 protected:
  ReadTable(ZV_Proc& proc, Reading read) : proc_(proc), read_(std::move(read)) {}

  ZV_Proc& proc_;
  Reading read_;
};

class Weekdays : public ReadTable<WeekdayReading> {
 public:
  Weekdays(ZV_Proc& proc, const CatalogueId& id, const Lines& listing)
      : ReadTable(proc, ReadWeekday(listing, id.Owner())), owner_(id.Owner()), listing_(listing) {}

  std::optional<BuiltLines> Build() const {
    return BuildWeekday(read_.table, owner_, listing_, BuildStart::Afresh,
                        proc_.settings.DecimalSeparator);
  }

  std::string Take(const ListedChange& change) {
    const auto& rows = std::get<WeekdayChange>(change);
    if (rows.add && rows.row.valueOff != kNoValue && IsPltName(owner_.name))
      return proc_.Text(text::kPlanNoStopValue);
    for (const std::size_t day : rows.days) {
      auto& places = read_.table.days.at(day);
      if (!rows.add) {
        for (WeekdayRow& row : places)
          if (row.start == rows.row.start) row = {};
      } else if (!PutIn(places, rows.row, [](const WeekdayRow& row) { return !row.Used(); })) {
        return proc_.ToUser().Text(text::kPlanDayFull,
                                   {kDayKeys.at(day), std::to_string(kWeekdayRows)});
      }
    }
    return {};
  }

 private:
  LineOwner owner_;
  const Lines& listing_;
};

class Exceptions : public ReadTable<ExceptionReading> {
 public:
  Exceptions(ZV_Proc& proc, const CatalogueId& id, const Lines& listing)
      : ReadTable(proc, ReadExceptions(listing, id.Owner())),
        owner_(id.Owner()),
        listing_(listing) {}

  std::optional<BuiltLines> Build() const {
    const auto options = ReadExceptionOptions(proc_.Numbers(), owner_.generation);
    if (!options) return std::nullopt;
    BuiltLines built =
        BuildExceptions(read_.table, owner_, listing_, *options, proc_.settings.DecimalSeparator);
    if (auto* const lines = std::get_if<Lines>(&built))
      std::erase_if(*lines, [this](const auto& line) { return !IsOwnException(line, owner_); });
    return built;
  }

  std::string Take(const ListedChange& change) {
    const auto& one = std::get<ExceptionChange>(change);
    auto& rows = read_.table.rows;
    if (!one.add) {
      for (OvcRow& row : rows)
        if (row.used && row.start == one.row.start) row = {};
      return {};
    }
    if (PutIn(rows, one.row, [](const OvcRow& row) { return !row.used; })) return {};
    return proc_.ToUser().Text(text::kPlanExceptionsFull, {std::to_string(kExceptionRows)});
  }

 private:
  LineOwner owner_;
  const Lines& listing_;
};

class Calendar : public ReadTable<CalendarReading> {
 public:
  Calendar(ZV_Proc& proc, const CatalogueId& id, const Lines& listing)
      : ReadTable(proc, ReadCalendar(listing, YearsOf(proc.settings, id.generation),
                                     CalendarYears::kFirst)),
        years_(YearsOf(proc.settings, id.generation)),
        layout_(read_.layout.value_or(EmptyCalendarLayout(id.control))) {}

  std::optional<BuiltLines> Build() const {
    return BuildCalendar(read_.table, layout_, years_.generation);
  }

  std::string Take(const ListedChange& change) {
    const auto& dates = std::get<CalendarChange>(change);
    if (dates.type == kNoDayType) {
      read_.table.Give(dates.first, dates.last, kNoDayType);
      return {};
    }
    for (const CalendarDate& each : {dates.first, dates.last}) {
      if (years_.Has(each.year)) continue;
      return proc_.ToUser().Text(
          text::kPlanYear, {IsoDate(each.year, each.month + 1, each.day),
                            std::to_string(CalendarYears::kFirst), std::to_string(years_.Last())});
    }
    for (CalendarDate day = dates.first;; day = NextDay(day)) {
      if (!HasOnly(day, dates.type) && !read_.table.Give(day, day, dates.type))
        return proc_.ToUser().Text(text::kPlanCalendarFull, {std::to_string(kCalendarEntries)});
      if (day == dates.last) return {};
    }
  }

 private:
  // A date that is listed twice with one type stays as it is.
  bool HasOnly(const CalendarDate& day, std::int16_t type) const {
    const std::int32_t key = PackDate(day, CalendarYears::kFirst);
    bool has = false;
    for (const CalendarEntry& entry : read_.table.Used()) {
      if (entry.date != key) continue;
      if (entry.type != type) return false;
      has = true;
    }
    return has;
  }

  CalendarYears years_;
  CalendarLayout layout_;
};

// Builds the table's lines into `lines`; returns why that failed, or "".
template <class Table>
std::string BuildInto(const Table& table, Lines& lines, ZV_Proc& proc) {
  std::optional<BuiltLines> built = table.Build();
  if (!built) return proc.Text(text::kPlanBadChange);  // a message told which setting is wrong
  if (const auto* const error = std::get_if<BuildError>(&*built))
    return error->MessageIn(proc.texts);
  lines = std::get<Lines>(*std::move(built));
  return {};
}

// What sending the unchanged table would change: nothing of it may go by the way.
std::string WouldLose(const ZV_Proc& proc, const CatalogueId& id, const Lines& listing,
                      const Lines& built) {
  const Lines own = SplitLines(id, listing).own;
  const auto changes =
      ChangesBetween({own, {}, LinesFrom::Controller}, {built, {}, LinesFrom::Controller},
                     RulesOf(id, proc.settings, proc.texts));
  if (changes.empty()) return {};
  const CatalogueChange& first = changes.front();
  return Message(proc.Text(text::kPlanWouldLose),
                 {first.before.empty() ? first.after : first.before});
}

// The own lines with "*", which are not read.
Lines Starred(const CatalogueId& id, const Lines& listing) {
  Lines starred = SplitLines(id, listing).own;
  std::erase_if(starred, [](const auto& line) { return line.find('*') == std::string::npos; });
  return starred;
}

template <class Table>
ChangedLines ChangeTable(ZV_Proc& proc, const CatalogueId& id, const Lines& listing,
                         std::span<const ListedChange> changes) {
  ChangedLines changed;
  Table table(proc, id, listing);
  if (table.Lost() > 0) {
    const Lines unread = table.Unread().empty() ? Starred(id, listing) : table.Unread();
    changed.refusal =
        proc.ToUser().Text(text::kPlanUnread, {std::to_string(table.Lost()), OnLines(unread)});
    changed.refusal = Shortened(OnOneLine(changed.refusal), kLongestWhy);
    return changed;
  }
  changed.refusal = BuildInto(table, changed.was, proc);
  if (changed.refusal.empty()) changed.refusal = WouldLose(proc, id, listing, changed.was);
  for (const ListedChange& change : changes)
    if (changed.refusal.empty() && KindOf(change) == id.catalogue)
      changed.refusal = table.Take(change);
  if (changed.refusal.empty()) changed.refusal = BuildInto(table, changed.will, proc);
  return changed;
}

}  // namespace

ChangedLines ChangeLines(ZV_Proc& proc, const CatalogueId& id, const Lines& listing,
                         std::span<const ListedChange> changes) {
  switch (id.catalogue) {
    case Catalogue::Sdc:
      return ChangeTable<Calendar>(proc, id, listing, changes);
    case Catalogue::Ovc:
      return ChangeTable<Exceptions>(proc, id, listing, changes);
    case Catalogue::Wdc:
      break;
  }
  if (id.IsPartOfShared() && SharesBlock(id.Owner()))
    return {{}, {}, proc.ToUser().Text(text::kSharesBlock, {id.control})};
  return ChangeTable<Weekdays>(proc, id, listing, changes);
}

std::optional<Lines> NumberedLike(ZV_Proc& proc, const CatalogueId& id, const Lines& lines,
                                  const Lines& listing) {
  if (id.IsPartOfShared()) return lines;
  const CalendarYears years = YearsOf(proc.settings, id.generation);
  constexpr int base = CalendarYears::kFirst;
  std::optional<BuiltLines> built =
      id.catalogue == Catalogue::Sdc
          ? BuildCalendar(
                ReadCalendar(lines, years, base).table,
                ReadCalendar(listing, years, base).layout.value_or(EmptyCalendarLayout(id.control)),
                id.generation)
          : NumberOwnLines(id, lines, listing, proc.Numbers());
  if (!built) return std::nullopt;
  const auto* const error = std::get_if<BuildError>(&*built);
  if (error == nullptr) return std::get<Lines>(*std::move(built));
  proc.prompts.Show(Icon::Exclamation, error->MessageIn(proc.texts));
  return std::nullopt;
}

EntrySet EntriesIn(const ZV_Proc& proc, const CatalogueId& id, const Lines& listing) {
  const CatalogueRules rules = RulesOf(id, proc.settings, proc.texts);
  EntrySet entries;
  for (CatalogueEntry& entry :
       EntriesOf({SplitLines(id, listing).own, {}, LinesFrom::Controller}, rules)) {
    entry.surplus.clear();  // a stop value where the layout has none means nothing
    std::string text = EntryText(entry, entry.day, rules);
    entries.insert(std::move(text));
  }
  return entries;
}

EntrySet Without(const EntrySet& some, const EntrySet& others) {
  EntrySet left;
  std::set_difference(some.begin(), some.end(), others.begin(), others.end(),
                      std::inserter(left, left.end()));
  return left;
}

}  // namespace zek
