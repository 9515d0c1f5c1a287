#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "Limits.h"
#include "OnePass.h"
#include "formats/CalendarText.h"
#include "formats/CatalogueLine.h"

namespace zek::bench {
namespace {

constexpr int kBaseYear = 2026;
constexpr CalendarYears kYears{Generation::Zek1, 93, 2099};
constexpr auto kEntries = static_cast<double>(kCalendarEntries);

using Lines = std::vector<std::string>;

// Fills every place on every line that a catalogue can have.
CalendarTable FullTable() {
  CalendarTable table(kBaseYear);
  CalendarDate date{kBaseYear, 0, 1};
  for (std::size_t line = 0; line < kMaxCatalogueLines; ++line) {
    const auto type = static_cast<std::int16_t>(1 + line % kCalendarDayTypes);
    const std::size_t end = (line + 1) * kCalendarEntries / kMaxCatalogueLines;
    for (; table.Used().size() < end; date = NextDay(date)) table.Add(date, date, type);
  }
  return table;
}

Lines Build(const CalendarTable& table) {
  BuiltLines built = BuildCalendar(table, EmptyCalendarLayout("TSC1"), kYears.generation);
  Lines* const lines = std::get_if<Lines>(&built);
  return lines == nullptr ? Lines() : std::move(*lines);
}

void ReadAndBuild(benchmark::State& state) {
  const CalendarTable table = FullTable();
  const Lines lines = Build(table);
  if (lines.size() != kMaxCatalogueLines || table.Used().size() != kCalendarEntries ||
      ReadCalendar(lines, kYears, kBaseYear).table != table) {
    state.SkipWithError("the calendar is not read as it was built");
  }
  for (auto _ : state) {
    const CalendarReading reading = ReadCalendar(lines, kYears, kBaseYear);
    benchmark::DoNotOptimize(Build(reading.table).data());
  }
}

void NumbersAndCopy(benchmark::State& state) {
  ParseAndCopy(state, Build(FullTable()), std::array<std::size_t, 5>{1, 8, 15, 19, 26},
               std::array<std::size_t, 0>{});
}

// A full table in random order.
std::vector<CalendarEntry> RandomEntries() {
  const CalendarTable full = FullTable();
  std::vector<CalendarEntry> entries(full.Used().begin(), full.Used().end());
  std::shuffle(entries.begin(), entries.end(), std::mt19937(512));  // NOLINT(cert-msc51-cpp)
  return entries;
}

void SortTable(benchmark::State& state) {
  CalendarTable mixed(kBaseYear);
  for (const CalendarEntry& entry : RandomEntries()) {
    const CalendarDate date = UnpackDate(entry.date, kBaseYear);
    mixed.Add(date, date, entry.type);
  }
  for (auto _ : state) {
    CalendarTable table = mixed;
    table.Sort();
    benchmark::DoNotOptimize(table);
  }
}

void SortVector(benchmark::State& state) {
  const std::vector<CalendarEntry> mixed = RandomEntries();
  for (auto _ : state) {
    std::vector<CalendarEntry> entries = mixed;
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto& left, const auto& right) { return left.date < right.date; });
    benchmark::DoNotOptimize(entries.data());
  }
}

}  // namespace

void AddCalendar(std::vector<Limit>& limits) {
  constexpr double mostOfPass = 12;
  constexpr double mostOfSort = 2;
  AddBenchmark("calendar", kEntries, ReadAndBuild);
  AddBenchmark("calendar: from_chars and memcpy", kEntries, NumbersAndCopy);
  AddBenchmark("calendar: sort", kEntries, SortTable);
  AddBenchmark("calendar: stable_sort", kEntries, SortVector);
  limits.push_back({"calendar / one from_chars and memcpy pass", "calendar",
                    "calendar: from_chars and memcpy", mostOfPass});
  limits.push_back({"sort of the calendar / stable_sort", "calendar: sort", "calendar: stable_sort",
                    mostOfSort});
}

}  // namespace zek::bench
