#include "app/ControlTablesOf.h"

#include "app/ControlCatalogues.h"
#include "editors/PickList.h"

namespace zek {
namespace {

std::vector<float> ListedValues(const ZV_Proc& proc, const Selection& node) {
  std::vector<float> values;
  const PickList list =
      ReadPickList(proc.profile, node.PickListTable, proc.settings.DecimalSeparator);
  for (const PickListItem& item : list.items)
    if (const MaybeValue value = ValueIn(item.value)) values.push_back(*value);
  return values;
}

}  // namespace

ControlTables ControlTablesOf(const ZV_Proc& proc, const Selection& node,
                              const ControlContents& contents) {
  ControlTables tables;
  tables.owner = node.Id(Catalogue::Wdc).Owner();
  tables.weekdayLines = contents.weekdays.lines;
  tables.calendarLines = contents.calendar.lines;
  tables.exceptionLines = contents.exceptions.lines;
  tables.weekdays = ReadWeekday(tables.weekdayLines, tables.owner);
  tables.calendar = ReadCalendar(tables.calendarLines, YearsOf(proc.settings, node.generation),
                                 CalendarYears::kFirst);
  tables.exceptions = ReadExceptions(tables.exceptionLines, tables.owner);
  tables.schedule = ScheduleOf(tables.weekdays, tables.calendar, tables.exceptions,
                               contents.weekdays.dfv, contents.exceptions.dfv);
  tables.beyond = {contents.weekdays.linesDropped, contents.calendar.linesDropped,
                   contents.exceptions.linesDropped};
  tables.rule = RuleOf(proc.profile, node.TopicName);
  tables.listedValues = ListedValues(proc, node);
  tables.dayNames = ReadSpecialDayNames(proc.profile, node.TopicName);
  return tables;
}

}  // namespace zek
