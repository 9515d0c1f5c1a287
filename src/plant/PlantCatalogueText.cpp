#include "plant/PlantCatalogueText.h"

#include "plant/PlantLine.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek::sim {
namespace {

bool Holds(std::string_view line, std::string_view word) {
  return line.find(word) != std::string_view::npos;
}

std::string AddNumbered(std::string_view line, PlantCatalogue& catalogue) {
  const int number = LineNumber(line);
  if (catalogue.lines.count(number) > 0) {
    return "the number " + std::to_string(number) + " occurs twice";
  }
  if (!catalogue.Put(number, line)) {
    return "more than " + std::to_string(kMostLines) + " numbered lines";
  }
  return {};
}

std::string AddLine(std::string_view line, PlantCatalogue& catalogue,
                    std::optional<std::string>& defaultValue) {
  if (!IsPlainLine(line)) {
    return "longer than " + std::to_string(kLongestLine) +
           " characters, or a character that no catalogue line may hold";
  }
  if (Holds(line, ".DFV")) {
    defaultValue = Trim(GetField(GetField(line, 1, "="), 0, "!"));
  } else if (LineNumber(line) > 0) {
    return AddNumbered(line, catalogue);
  } else if (catalogue.lines.empty() && catalogue.header.empty()) {
    catalogue.header = line;
  } else if (!Trim(line).empty()) {
    return "begins with no line number from 1 to 99999";
  }
  return {};
}

// Parses "Kind = 2" or "Dus = 3"; returns false for anything else.
bool TakeOutstationLine(std::string_view line, Outstation& outstation) {
  const std::string key = UpperCase(Trim(GetField(line, 0, "=")));
  const std::string_view value = Trim(GetField(line, 1, "="));
  if (key == "KIND" && (value == "1" || value == "2")) {
    outstation.generation = value == "2" ? Generation::Zek2 : Generation::Zek1;
    return true;
  }
  const int number = ToInt16(Val(value)).value_or(0);
  if (key != "DUS" || number < 1 || std::to_string(number) != value) return false;
  outstation.dus = number;
  return true;
}

}  // namespace

std::string ReadOutstationText(std::string_view text, Outstation& outstation) {
  for (int row = 1; !text.empty(); ++row) {
    const std::string_view line = Trim(TakeTextLine(text));
    if (line.empty() || line.front() == ';' || TakeOutstationLine(line, outstation)) continue;
    return "line " + std::to_string(row) +
           R"(: expected "Kind = 1", "Kind = 2" or "Dus = n" with n from 1 to 32767)";
  }
  return {};
}

std::string ReadPlantCatalogue(std::string_view text, PlantCatalogue& catalogue,
                               std::optional<std::string>& defaultValue) {
  for (int row = 1; !text.empty(); ++row) {
    const std::string_view line = TakeTextLine(text);
    if (Holds(line, "EXIT") || Holds(line, ".EXC")) break;
    const std::string error = AddLine(line, catalogue, defaultValue);
    if (!error.empty()) return "line " + std::to_string(row) + ": " + error;
  }
  return {};
}

std::string BuildPlantCatalogue(const PlantCatalogue& catalogue,
                                const std::optional<std::string>& defaultValue) {
  std::string text = catalogue.header + "\r\n";
  for (const auto& [number, line] : catalogue.lines) text += line + "\r\n";
  if (defaultValue) text += ".DFV = " + *defaultValue + "\r\n";
  return text + "EXIT\r\n";
}

}  // namespace zek::sim
