#include <algorithm>
#include <string>
#include <vector>

#include "Demand.h"
#include "Targets.h"
#include "formats/CalendarText.h"
#include "formats/ExceptionText.h"
#include "formats/WeekdayText.h"
#include "text/Lines.h"

namespace zek::fuzz {
namespace {

using Lines = std::vector<std::string>;

// The first line of an input: two characters of options, then the time control's name. "2,AHU1" is
// time control AHU1 of a ZEK2, with a decimal comma.
struct Case {
  Generation generation = Generation::Zek1;
  char separator = '.';
  std::string name;
  Lines lines;

  explicit Case(std::string_view input) {
    std::string_view first = TakeLine(input);
    if (first.starts_with('2')) generation = Generation::Zek2;
    if (first.starts_with("1,") || first.starts_with("2,")) separator = ',';
    name = first.substr(std::min<std::size_t>(first.size(), 2));
    while (!input.empty()) lines.emplace_back(TakeLine(input));
  }
};

// Reads the lines built from a table and builds them again; they must be the same. Comparing tables
// would not work, because their values have more digits than a line.
template <class Table, class Read, class Build>
void DemandRoundTrip(const Table& table, Read read, Build build) {
  const BuiltLines built = build(table);
  const Lines* const lines = std::get_if<Lines>(&built);
  if (lines == nullptr) return;  // refused with a message
  const auto reading = read(*lines);
  Demand(reading.linesLost == 0, "what was built is read whole");
  const BuiltLines again = build(reading.table);
  Demand(std::holds_alternative<Lines>(again) && std::get<Lines>(again) == *lines,
         "what was read builds the same lines");
}

}  // namespace

void Weekday(std::string_view input) {
  const Case given(input);
  const LineOwner owner{given.name, given.generation, {}};
  const auto read = [&](const Lines& lines) { return ReadWeekday(lines, owner); };
  DemandRoundTrip(read(given.lines).table, read, [&](const WeekdayTable& table) {
    return BuildWeekday(table, owner, given.lines, BuildStart::Afresh, given.separator);
  });
}

void Calendar(std::string_view input) {
  const Case given(input);
  const CalendarYears years{given.generation, 93, 2099};
  const auto read = [&](const Lines& lines) {
    return ReadCalendar(lines, years, CalendarYears::kFirst);
  };
  DemandRoundTrip(read(given.lines).table, read, [&](const CalendarTable& table) {
    return BuildCalendar(table, EmptyCalendarLayout(given.name), given.generation);
  });
}

void Exceptions(std::string_view input) {
  const Case given(input);
  const LineOwner owner{given.name, given.generation, {}};
  const auto read = [&](const Lines& lines) { return ReadExceptions(lines, owner); };
  ExceptionTable table = read(given.lines).table;
  // Of too many lines the first eight keep their order, which is then not the order of dates.
  std::stable_sort(
      table.rows.begin(), table.rows.end(),
      [](const OvcRow& left, const OvcRow& right) { return left.start > right.start; });
  DemandRoundTrip(table, read, [&](const ExceptionTable& each) {
    return BuildExceptions(each, owner, {}, {1, 100}, given.separator);
  });
}

}  // namespace zek::fuzz
