#include <algorithm>

#include "findings/Effect.h"
#include "findings/FindingList.h"
#include "forecast/Forecast.h"
#include "formats/ExceptionCells.h"

namespace zek {
namespace {

using enum FindingKind;

Moment EndOf(const OvcRow& row) { return StopOf(row).value_or(row.start); }

std::string WhenText(Moment moment) {
  return DateText(moment) + " " + ClockText(TimeOfDay(moment));
}

// The value that an exception gave and that may still apply, by any variant of the rule.
MaybeValue ValueLeftBy(const ExceptionLine& exception, const Schedule& schedule, Moment now) {
  for (const Rule& rule : Rule::Variants()) {
    const auto [value, source] = Forecast(schedule, rule).At(now);
    const bool own = source.kind == SwitchSource::Kind::Exception ||
                     source.kind == SwitchSource::Kind::ExceptionStop;
    if (own && source.line == exception.number) return value;
  }
  return std::nullopt;
}

// Finds what is wrong with one exception by itself.
class ExceptionCheck {
 public:
  ExceptionCheck(FindingList& list, const ControlTables& control, const FindingContext& context)
      : list_(list), control_(control), context_(context) {}

  void Check(const ExceptionLine& each) {
    constexpr DayNumber far = 730;  // two years
    const OvcRow& row = each.row;
    const std::string place = PlaceOf("ovc", each.number);
    if (row.stop != 0 && !StopOf(row)) {
      list_.Add(ExceptionStopEarly, place, {WhenText(row.start), StopText(row), {}});
    }
    for (const float value : {row.valueOn, row.valueOff}) CheckValue(place, value);
    if (row.valueOn == kNoValue && row.valueOff == kNoValue)
      return list_.Add(ExceptionEmpty, place);
    const Moment now = StartOf(context_.today);
    if (EndOf(row) <= now) {
      MaybeValue left;
      if (control_.known.All()) left = ValueLeftBy(each, control_.schedule, now);
      const std::string value = left ? FormatNumber(*left, context_.decimalSeparator) : "";
      return list_.Add(ExceptionOver, place, {WhenText(EndOf(row)), value, {}});
    }
    if (row.start > StartOf(context_.today + far)) {
      list_.Add(ExceptionFar, place, {DateText(row.start), {}, {}});
    }
    const Doubt doubt{ExceptionNoEffect, each.number};
    if (!context_.prove || !control_.known.All()) return;
    if (HaveEffect(control_.schedule, doubt, context_.today)) return;
    list_.Add(ExceptionNoEffect, place);
  }

  void CheckPair(const ExceptionLine& one, const ExceptionLine& other) {
    const Moment from = std::max(one.row.start, other.row.start);
    const Moment to = std::min(EndOf(one.row), EndOf(other.row));
    const bool both = one.row.valueOn != kNoValue && other.row.valueOn != kNoValue;
    if (!both || from >= to || to <= StartOf(context_.today)) return;
    list_.Add(ExceptionsOverlap, PlaceOf("ovc", one.number),
              {std::to_string(other.number), WhenText(from), WhenText(to)});
  }

 private:
  static std::string StopText(const OvcRow& row) {
    return row.HasStopDate() ? WhenText(row.stop) : ClockText(row.StopTime());
  }

  void CheckValue(const std::string& place, float value) {
    const std::vector<float>& listed = control_.listedValues;
    if (value == kNoValue || listed.empty()) return;
    if (std::find(listed.begin(), listed.end(), value) != listed.end()) return;
    list_.Add(ValueNotListed, place, {FormatNumber(value, context_.decimalSeparator), {}, {}});
  }

  FindingList& list_;
  const ControlTables& control_;
  const FindingContext& context_;
};

}  // namespace

void FindInExceptions(FindingList& list, const ControlTables& control,
                      const FindingContext& context) {
  ExceptionCheck check(list, control, context);
  const std::vector<ExceptionLine>& exceptions = control.schedule.exceptions;
  for (auto one = exceptions.begin(); one != exceptions.end(); ++one) {
    check.Check(*one);
    for (auto other = one + 1; other != exceptions.end(); ++other) check.CheckPair(*one, *other);
  }
  CheckFull(list, "ovc", exceptions.size(), kExceptionRows);
}

}  // namespace zek
