#include "app/KnownTables.h"

#include <utility>

#include "app/ControlTablesOf.h"
#include "editors/FindingPlaces.h"
#include "forecast/EditedEntries.h"
#include "forecast/MomentText.h"

namespace zek {
namespace {

void Add(std::vector<Finding>& to, const std::vector<Finding>& from, Catalogue catalogue) {
  for (const Finding& finding : from)
    if (CatalogueOf(finding).value_or(Catalogue::Wdc) == catalogue) to.push_back(finding);
}

}  // namespace

void KnownTables::Put(const EditedTable& table) {
  Schedule& schedule = tables.schedule;
  if (const auto* const weekdayTable = std::get_if<WeekdayTable>(&table)) {
    schedule.weekdays = *weekdayTable;
    schedule.weekdayLines = OwnNumbers(*weekdayTable);
  } else if (const auto* const dates = std::get_if<CalendarTable>(&table)) {
    tables.calendar.table = *dates;
    schedule.calendar = OwnNumbers(*dates);
  } else {
    schedule.exceptions = OwnNumbers(std::get<ExceptionTable>(table));
  }
}

KnownTables ReadKnownTables(const ZV_Proc& proc, const Selection& node, const OpenCatalogue* open) {
  const auto content = [&](Catalogue catalogue) {
    if (open != nullptr && open->catalogue == catalogue) return open->content;
    const CatalogueId id = node.Id(catalogue);
    return proc.copies.Exists(id) ? proc.copies.Peek(id) : CatalogueContent();
  };
  const CatalogueContent weekdays = content(Catalogue::Wdc);
  const CatalogueContent calendar = content(Catalogue::Sdc);
  const CatalogueContent exceptions = content(Catalogue::Ovc);
  KnownTables known;
  known.tables = ControlTablesOf(proc, node, {weekdays, calendar, exceptions});
  ControlTables& tables = known.tables;
  tables.known = {weekdays.from != LinesFrom::Nowhere, calendar.from != LinesFrom::Nowhere,
                  exceptions.from != LinesFrom::Nowhere};
  known.Put(tables.weekdays.table);
  known.Put(tables.calendar.table);
  known.Put(tables.exceptions.table);
  return known;
}

FindingContext ContextNow(const ZV_Proc& proc) {
  return {DayOf(proc.now()), proc.settings.SwedishHolidays, proc.settings.DecimalSeparator, false};
}

FindingSearch SearchControl(Catalogue catalogue, const KnownTables& control, bool lines,
                            const FindingContext& context) {
  const ControlTables& tables = control.tables;
  std::vector<Finding> found;
  Add(found, FindingsOf(tables, context), catalogue);
  if (lines) Add(found, SharedFindings({&tables, 1}, false, context), catalogue);
  std::vector<Doubt> doubts;
  if (control.All()) {
    doubts = catalogue == Catalogue::Wdc ? DoubtsOfRows(tables.schedule, context.today)
                                         : DoubtsOfExceptions(tables.schedule, context.today);
  }
  return {std::move(found), std::move(doubts), {tables.schedule}, context.today};
}

FindingSearch SearchCalendar(const KnownTables& any, std::vector<Schedule> controls,
                             const FindingContext& context) {
  std::vector<Finding> found;
  Add(found, SharedFindings({&any.tables, 1}, false, context), Catalogue::Sdc);
  std::vector<Doubt> doubts;
  if (!controls.empty()) doubts = DoubtsOfDates(any.tables.schedule, context.today);
  return {std::move(found), std::move(doubts), std::move(controls), context.today};
}

}  // namespace zek
