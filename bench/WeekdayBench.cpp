#include <array>
#include <string>
#include <variant>
#include <vector>

#include "LibicalSchedule.h"
#include "Limits.h"
#include "OnePass.h"
#include "formats/CatalogueLine.h"
#include "formats/WeekdayText.h"

namespace zek::bench {
namespace {

constexpr std::string_view kName = "TSC1";
constexpr auto kEntries = static_cast<double>(kMaxCatalogueLines);

using Lines = std::vector<std::string>;

// A row for each line of a full catalogue. Neighbouring days differ, so no two rows share a line.
WeekdayTable FullTable() {
  constexpr std::array valuesOn = {21.F, 1.F, 20.5F, 22.F};
  WeekdayTable table;
  for (std::size_t entry = 0; entry < kMaxCatalogueLines; ++entry) {
    const std::size_t day = entry % kWeekdayDays;
    const std::size_t row = entry / kWeekdayDays;
    const auto start = static_cast<std::int16_t>(row * 80 + day * 5);
    table.days.at(day).at(row) = {start, static_cast<std::int16_t>(start + 45),
                                  valuesOn.at(entry % valuesOn.size()), 17.F};
  }
  return table;
}

LineOwner OwnerOf() { return {std::string(kName), Generation::Zek1, {}}; }

Lines Build(const WeekdayTable& table) {
  BuiltLines built = BuildWeekday(table, OwnerOf(), {}, BuildStart::Afresh, '.');
  Lines* const lines = std::get_if<Lines>(&built);
  return lines == nullptr ? Lines() : std::move(*lines);
}

void ReadAndBuild(benchmark::State& state) {
  const WeekdayTable table = FullTable();
  const Lines lines = Build(table);
  if (lines.size() != kMaxCatalogueLines || ReadWeekday(lines, OwnerOf()).table != table) {
    state.SkipWithError("the catalogue is not read as it was built");
  }
  for (auto _ : state) {
    const WeekdayReading reading = ReadWeekday(lines, OwnerOf());
    benchmark::DoNotOptimize(Build(reading.table).data());
  }
}

void NumbersAndCopy(benchmark::State& state) {
  ParseAndCopy(state, Build(FullTable()), std::array<std::size_t, 5>{1, 35, 38, 42, 45},
               std::array<std::size_t, 2>{61, 71});
}

void ParseAndSerialise(benchmark::State& state) {
  const std::string calendar = IcalendarOf(FullTable());
  if (CountEvents(calendar) != kMaxCatalogueLines) state.SkipWithError("not a full schedule");
  for (auto _ : state) benchmark::DoNotOptimize(ParsedAndSerialised(calendar).data());
}

}  // namespace

void AddWeekday(std::vector<Limit>& limits) {
  constexpr double mostOfPass = 6;
  constexpr double mostOfLibical = 0.1;
  AddBenchmark("weekday catalogue", kEntries, ReadAndBuild);
  AddBenchmark("from_chars and memcpy", kEntries, NumbersAndCopy);
  AddBenchmark("libical", kEntries, ParseAndSerialise);
  limits.push_back({"weekday catalogue / one from_chars and memcpy pass", "weekday catalogue",
                    "from_chars and memcpy", mostOfPass});
  limits.push_back({"weekday catalogue / libical, time for an entry", "weekday catalogue",
                    "libical", mostOfLibical});
}

}  // namespace zek::bench
