// zekview-round-trips [COUNT] [SEED]: COUNT random tables (1000) of each kind and generation, and
// of the "PLT" layouts. The lines built from a table must read back as the table and build the same
// lines again. As many random files are imported into random calendars: what the preview lists is
// what changes. The first failure of each is shown with its seed.

#include <algorithm>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "Previews.h"
#include "RandomTables.h"
#include "formats/WeekdayText.h"

namespace zek::fuzz {
namespace {

using Lines = std::vector<std::string>;

// The result for one table: its lines, and the error ("" if correct).
struct Trip {
  Lines lines;
  std::string fault;
};

template <class Table, class Read, class Build>
Trip TripOf(const Table& table, Read read, Build build) {
  const BuiltLines built = build(table);
  if (const auto* error = std::get_if<BuildError>(&built)) {
    return {{}, "not built: text " + std::to_string(error->text) + " " + error->values[0]};
  }
  const auto& lines = std::get<Lines>(built);
  const auto reading = read(lines);
  if (reading.linesLost > 0) return {lines, "lines were refused"};
  if (!(reading.table == table)) return {lines, "it reads back as another table"};
  const BuiltLines again = build(reading.table);
  if (!std::holds_alternative<Lines>(again) || std::get<Lines>(again) != lines) {
    return {lines, "it builds other lines"};
  }
  return {lines, {}};
}

char SeparatorOf(Random& random) { return random.OneIn(2) ? ',' : '.'; }

Trip WeekdayTrip(Random& random, bool plt) {
  // On a ZEK1 many tables would not fit into the block of a "PLT" control.
  const LineOwner owner{RandomName(random, plt), plt ? Generation::Zek2 : Generation::Zek1, {}};
  const char separator = SeparatorOf(random);
  const auto build = [&](const WeekdayTable& table) {
    return BuildWeekday(table, owner, {}, BuildStart::Afresh, separator);
  };
  const auto read = [&](const Lines& lines) { return ReadWeekday(lines, owner); };
  WeekdayTable table = RandomWeekday(random, plt);
  // Removes rows that exceed the lines of a catalogue, the last ones first.
  for (std::size_t row = kWeekdayRows; row > 0; --row) {
    const BuiltLines built = build(table);
    const auto* error = std::get_if<BuildError>(&built);
    if (error == nullptr) break;
    for (auto& day : table.days) day.at(row - 1) = {};
  }
  return TripOf(table, read, build);
}

Trip CalendarTrip(Random& random, Generation generation, bool plt) {
  const CalendarYears years{generation, 93, 2099};
  const std::string name = RandomName(random, plt);
  CalendarTable table = RandomCalendar(random, years);
  table.Sort();
  return TripOf(
      table, [&](const Lines& lines) { return ReadCalendar(lines, years, CalendarYears::kFirst); },
      [&](const CalendarTable& each) {
        return BuildCalendar(each, EmptyCalendarLayout(name), generation);
      });
}

Trip ExceptionTrip(Random& random, Generation generation) {
  const LineOwner owner{RandomName(random, random.OneIn(4)), generation, {}};
  const char separator = SeparatorOf(random);
  ExceptionTable table = RandomExceptions(random, generation);
  std::stable_sort(
      table.rows.begin(), table.rows.end(),
      [](const OvcRow& left, const OvcRow& right) { return left.start > right.start; });
  return TripOf(
      table, [&](const Lines& lines) { return ReadExceptions(lines, owner); },
      [&](const ExceptionTable& each) {
        return BuildExceptions(each, owner, {}, {1, 100}, separator);
      });
}

Trip PreviewTrip(Random& random) {
  std::string file;
  const std::string fault = PreviewFault(random, file);
  return {{file}, fault};
}

struct Format {
  std::string name;
  std::function<Trip(Random&)> trip;
};

std::vector<Format> Formats() {
  constexpr Generation one = Generation::Zek1;
  constexpr Generation two = Generation::Zek2;
  return {
      {"round trips weekday ZEK1", [](Random& random) { return WeekdayTrip(random, false); }},
      {"round trips weekday ZEK2",
       [](Random& random) { return WeekdayTrip(random, random.OneIn(2)); }},
      {"round trips weekday PLT", [](Random& random) { return WeekdayTrip(random, true); }},
      {"round trips calendar ZEK1",
       [](Random& random) { return CalendarTrip(random, one, false); }},
      {"round trips calendar ZEK2",
       [](Random& random) { return CalendarTrip(random, two, false); }},
      {"round trips calendar PLT",
       [](Random& random) { return CalendarTrip(random, random.OneIn(2) ? one : two, true); }},
      {"round trips exceptions ZEK1", [](Random& random) { return ExceptionTrip(random, one); }},
      {"round trips exceptions ZEK2", [](Random& random) { return ExceptionTrip(random, two); }},
      {"previews of imports", PreviewTrip},
  };
}

void Show(const Format& format, std::uint64_t seed, const Trip& trip) {
  std::cout << format.name << ", seed " << seed << ": " << trip.fault << '\n';
  for (const std::string& line : trip.lines) std::cout << "  " << line << '\n';
}

// True if every table was read back.
bool Run(const Format& format, std::uint64_t count, std::uint64_t firstSeed) {
  std::uint64_t good = 0;
  for (std::uint64_t seed = firstSeed; seed < firstSeed + count; ++seed) {
    Random random(seed);
    const Trip trip = format.trip(random);
    const bool first = good == seed - firstSeed;
    if (trip.fault.empty()) {
      ++good;
    } else if (first) {
      Show(format, seed, trip);
    }
  }
  std::cout << "figure: " << format.name << ": " << good << " of " << count << std::endl;
  return good == count;
}

}  // namespace
}  // namespace zek::fuzz

int main(int argc, char** argv) try {
  const std::uint64_t count = argc > 1 ? std::stoull(argv[1]) : 1000;
  const std::uint64_t seed = argc > 2 ? std::stoull(argv[2]) : 1;
  bool good = true;
  for (const auto& format : zek::fuzz::Formats()) good = Run(format, count, seed) && good;
  return good ? 0 : 1;
} catch (const std::invalid_argument&) {
  std::cerr << "usage: zekview-round-trips [COUNT] [SEED]\n";
  return 2;
}
