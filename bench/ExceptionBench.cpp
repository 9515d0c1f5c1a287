#include <array>
#include <string>
#include <variant>
#include <vector>

#include "Limits.h"
#include "OnePass.h"
#include "formats/CatalogueLine.h"
#include "formats/ExceptionText.h"

namespace zek::bench {
namespace {

constexpr std::size_t kControls = 26;
constexpr auto kEntries = static_cast<double>(kMaxCatalogueLines);
constexpr ExceptionOptions kOptions{1, 0};

using Lines = std::vector<std::string>;

LineOwner OwnerOf(std::size_t control) {
  return {"TSC" + std::to_string(control), Generation::Zek1, {}};
}

ExceptionTable TableOf(std::size_t control) {
  constexpr std::array valuesOn = {21.F, 1.F, 20.5F, 22.F};
  ExceptionTable table;
  for (std::size_t i = 0; i < kExceptionRows; ++i) {
    const auto nth = static_cast<double>(control * kExceptionRows + i);
    const Moment start = DateMoment(2027, 12, 31 - nth) + 480;
    table.rows.at(i) = {true, start, start + Moment{2} * kMinutesOfDay + 540,
                        valuesOn.at(i % valuesOn.size()), 16.F};
  }
  return table;
}

Lines Build(const ExceptionTable& table, const LineOwner& owner, const Lines& lines) {
  BuiltLines built = BuildExceptions(table, owner, lines, kOptions, '.');
  Lines* const taken = std::get_if<Lines>(&built);
  return taken == nullptr ? Lines() : std::move(*taken);
}

// A controller's full catalogue: 8 exceptions for each time control, but 1 for the last.
Lines FullCatalogue() {
  Lines lines;
  for (std::size_t control = 1; control <= kControls; ++control) {
    ExceptionTable table = TableOf(control);
    for (std::size_t row = kMaxCatalogueLines - lines.size(); row < kExceptionRows; ++row)
      table.rows.at(row).used = false;
    lines = Build(table, OwnerOf(control), lines);
  }
  return lines;
}

void ReadAndBuild(benchmark::State& state) {
  const Lines lines = FullCatalogue();
  const LineOwner owner = OwnerOf(7);
  if (lines.size() != kMaxCatalogueLines || ReadExceptions(lines, owner).table != TableOf(7)) {
    state.SkipWithError("the catalogue is not read as it was built");
  }
  for (auto _ : state) {
    const ExceptionReading reading = ReadExceptions(lines, owner);
    benchmark::DoNotOptimize(Build(reading.table, owner, lines).data());
  }
}

void NumbersAndCopy(benchmark::State& state) {
  ParseAndCopy(state, FullCatalogue(),
               std::array<std::size_t, 9>{1, 21, 28, 31, 34, 38, 45, 48, 51},
               std::array<std::size_t, 2>{61, 71});
}

}  // namespace

void AddException(std::vector<Limit>& limits) {
  constexpr double mostOfPass = 3;
  AddBenchmark("exception catalogue", kEntries, ReadAndBuild);
  AddBenchmark("exception numbers and memcpy", kEntries, NumbersAndCopy);
  limits.push_back({"exception catalogue / one from_chars and memcpy pass", "exception catalogue",
                    "exception numbers and memcpy", mostOfPass});
}

}  // namespace zek::bench
