#include <optional>
#include <string>

#include "Demand.h"
#include "Targets.h"
#include "catalogue/CopyFormat.h"
#include "formats/CatalogueLine.h"
#include "import/CalendarPreview.h"
#include "import/ImportFile.h"
#include "plant/Plant.h"
#include "plant/PlantCatalogueText.h"

namespace zek::fuzz {
namespace {

std::string TextOf(const sim::Outstation& outstation) {
  std::string text = outstation.generation == Generation::Zek2 ? "Kind = 2\r\n" : "Kind = 1\r\n";
  if (outstation.dus != 0) text += "Dus = " + std::to_string(outstation.dus) + "\r\n";
  return text;
}

}  // namespace

void LocalCopies(std::string_view input) {
  const LocalCopy copy = ReadLocalCopy(input);
  Demand(copy.lines.size() <= kMaxCatalogueLines, "a copy keeps its limit");
  const std::string built = BuildLocalCopy(copy.lines, copy.dfv);
  const LocalCopy again = ReadLocalCopy(built);
  Demand(!again.tooLong && again.lines == copy.lines && again.dfv == copy.dfv,
         "a copy that was built reads the same");
  Demand(BuildLocalCopy(again.lines, again.dfv) == built, "a copy that was read builds the same");
}

// The preview is what happens, and nothing else.
void Import(std::string_view input) {
  const ImportWindow window{{Generation::Zek2, 20, 2030},
                            ImportKey({2020, 0, 1}),
                            ImportKey({2030, 11, 31}),
                            2030,
                            false};
  CalendarTable table(2026);
  table.Give({2026, 11, 20}, {2026, 11, 31}, 9);
  std::size_t clock = 0;
  const ImportedDates read =
      ReadImportFile(input, window, [&clock] { return std::chrono::milliseconds(++clock / 16); });
  const auto lines = PreviewImport(table, read.dates, 8);
  const auto result = WithImported(table, lines);
  if (!result) return;
  std::size_t added = 0;
  for (const PreviewLine& line : lines) {
    const bool conflict = line.effect == ImportEffect::Conflict;
    added += line.effect == ImportEffect::Add ? 1 : 0;
    Demand(IsDate(line.date.date) && window.years.Has(line.date.date.year), "dates exist");
    Demand(result->TypeOn(line.date.date) == (conflict ? line.present : line.date.type),
           "a date is as it was shown");
  }
  Demand(result->Used().size() == table.Used().size() + added, "nothing else changes");
}

void PlantFiles(std::string_view input) {
  sim::Outstation outstation;
  if (sim::ReadOutstationText(input, outstation).empty()) {
    sim::Outstation again;
    Demand(sim::ReadOutstationText(TextOf(outstation), again).empty() &&
               again.generation == outstation.generation && again.dus == outstation.dus,
           "an outstation that was built is the same");
  }
  sim::PlantCatalogue catalogue;
  std::optional<std::string> value;
  if (!sim::ReadPlantCatalogue(input, catalogue, value).empty()) return;
  const std::string built = sim::BuildPlantCatalogue(catalogue, value);
  sim::PlantCatalogue again;
  std::optional<std::string> valueAgain;
  Demand(sim::ReadPlantCatalogue(built, again, valueAgain).empty(), "what was built is read");
  Demand(again.header == catalogue.header && again.lines == catalogue.lines && valueAgain == value,
         "a plant's catalogue that was built reads the same");
  Demand(sim::BuildPlantCatalogue(again, valueAgain) == built,
         "a plant's catalogue that was read builds the same");
}

}  // namespace zek::fuzz
