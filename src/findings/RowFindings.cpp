#include <algorithm>

#include "findings/Effect.h"
#include "findings/FindingList.h"
#include "forecast/Forecast.h"
#include "forecast/MomentText.h"
#include "formats/ExceptionCells.h"
#include "text/Numbers.h"

namespace zek {
namespace {

using enum FindingKind;

// A row of a day type and the line it came from.
struct LineRow {
  WeekdayRow row;
  int line = 0;

  std::string Place() const { return PlaceOf("wdc", line); }
  std::string Times() const {
    return ClockText(row.start) + (row.stop == kNoTime ? "" : ".." + ClockText(row.stop));
  }
  // True if it lasts for some time of its day.
  bool Lasts() const { return row.stop > row.start; }
  bool Overlaps(const LineRow& other) const {
    return Lasts() && other.Lasts() && row.start < other.row.stop && other.row.start < row.stop;
  }
};

std::vector<LineRow> RowsOf(const Schedule& schedule, std::size_t day) {
  std::vector<LineRow> rows;
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    const WeekdayRow& cells = schedule.weekdays.days.at(day).at(row);
    if (cells.Used()) rows.push_back({cells, schedule.weekdayLines.at(day).at(row)});
  }
  return rows;
}

// Finds what is wrong with one row by itself.
class RowCheck {
 public:
  RowCheck(FindingList& list, const ControlTables& control, const FindingContext& context)
      : list_(list), control_(control), context_(context) {}

  void Check(const LineRow& each) {
    const WeekdayRow& row = each.row;
    if (row.stop != kNoTime && !each.Lasts()) {
      list_.Add(RowStopEarly, each.Place(), {ClockText(row.start), ClockText(row.stop), {}});
    }
    if (row.stop != kNoTime && row.valueOff == kNoValue && !control_.schedule.standard) {
      list_.Add(StopWithoutValue, each.Place());
    }
    CheckValue(each, row.valueOn);
    if (row.valueOff != kNoValue) CheckValue(each, row.valueOff);
  }

 private:
  void CheckValue(const LineRow& each, float value) {
    const std::vector<float>& listed = control_.listedValues;
    if (listed.empty() || std::find(listed.begin(), listed.end(), value) != listed.end()) return;
    list_.Add(ValueNotListed, each.Place(),
              {FormatNumber(value, context_.decimalSeparator), {}, {}});
  }

  FindingList& list_;
  const ControlTables& control_;
  const FindingContext& context_;
};

void CheckPair(FindingList& list, const LineRow& one, const LineRow& other) {
  const std::array<std::string, 3> words = {one.Times(), std::to_string(other.line), other.Times()};
  if (one.row == other.row) {
    list.Add(RowsEqual, one.Place(), words);
  } else if (one.Overlaps(other)) {
    const bool same = one.row.valueOn == other.row.valueOn;
    list.Add(same ? RowsOverlapSame : RowsOverlap, one.Place(), words);
  }
}

void CheckTypes(FindingList& list, const ControlTables& control, const FindingContext& context) {
  const Schedule& schedule = control.schedule;
  const TypeSet coming = ComingTypes(schedule, context.today);
  const Forecast forecast(schedule, control.rule);
  for (std::size_t type = kDaysOfType; type < kWeekdayDays; ++type) {
    const bool rows = !RowsOf(schedule, type).empty();
    const std::string name(kDayKeys.at(type));
    if (rows && !coming.test(type)) list.Add(TypeUnused, name);
    if (rows || !coming.test(type)) continue;
    TypeSet only;
    const DayNumber day = *forecast.Types().NextOf(only.set(type), context.today);
    const MaybeValue value = forecast.At(StartOf(day) + kMinutesOfDay / 2).value;
    list.Add(TypeWithoutRows, name,
             {name, DateText(StartOf(day)), ValueText(value, context.decimalSeparator)});
  }
}

void CheckEffects(FindingList& list, const ControlTables& control, const FindingContext& context) {
  for (const Doubt& doubt : DoubtsOfRows(control.schedule, context.today)) {
    if (!HaveEffect(control.schedule, doubt, context.today))
      list.Add(RowNoEffect, PlaceOf("wdc", doubt.line));
  }
}

}  // namespace

std::vector<Finding> TypesWithoutRows(const ControlTables& control, const FindingContext& context) {
  FindingList list;
  if (control.known.All()) CheckTypes(list, control, context);
  std::vector<Finding> found = list.Take();
  std::erase_if(found, [](const auto& each) { return each.kind != TypeWithoutRows; });
  return found;
}

void FindInRows(FindingList& list, const ControlTables& control, const FindingContext& context) {
  RowCheck check(list, control, context);
  bool any = false;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    const std::vector<LineRow> rows = RowsOf(control.schedule, day);
    any = any || !rows.empty();
    for (auto one = rows.begin(); one != rows.end(); ++one) {
      check.Check(*one);
      for (auto other = one + 1; other != rows.end(); ++other) CheckPair(list, *one, *other);
    }
    CheckFull(list, "wdc " + std::string(kDayKeys.at(day)), rows.size(), kWeekdayRows);
  }
  if (!any) list.Add(NoRows, "wdc");
  CheckTypes(list, control, context);
  if (context.prove && control.known.All()) CheckEffects(list, control, context);
}

}  // namespace zek
