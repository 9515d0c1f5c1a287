#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CopyFormat.h"
#include "support/CaseFile.h"
#include "text/Fields.h"

namespace zek {
namespace {

// "WDC ZEK1 T1" and the object's "PLT" controls; all controls of a ZEK1 share a catalogue.
CatalogueRules RulesOf(const std::string& head) {
  std::vector<std::string> pltControls;
  std::istringstream words(head);
  for (std::string word; words >> word;)
    if (word.starts_with("PLT")) pltControls.push_back(word);
  const std::string_view kind = GetField(head, 0, " ");
  const auto generation = GetField(head, 1, " ") == "ZEK2" ? Generation::Zek2 : Generation::Zek1;
  return {kind == "WDC"   ? Catalogue::Wdc
          : kind == "SDC" ? Catalogue::Sdc
                          : Catalogue::Ovc,
          std::string(GetField(head, 2, " ")),
          generation,
          generation == Generation::Zek1 && kind != "SDC",
          {generation, 93, 2099},
          '.',
          pltControls};
}

// The catalogue of the lines marked with `sign`, or with "=" for both catalogues.
CatalogueContent ContentOf(const test::TextCase& given, char sign) {
  std::string file;
  for (const std::string& line : given.given)
    if (line[0] == sign || line[0] == '=') file += line.substr(1) + "\n";
  LocalCopy copy = ReadLocalCopy(file);
  return {copy.lines, copy.dfv};
}

std::string Text(const CatalogueChange& change) {
  constexpr std::array kinds = {"changed", "added", "removed", "dropped"};
  constexpr std::array reasons = {"",           " starred",    " too many",      " PLT stop value",
                                  " stop time", " unreadable", " other control", " overwritten",
                                  " may stay"};
  return std::string(kinds.at(static_cast<std::size_t>(change.kind))) +
         reasons.at(static_cast<std::size_t>(change.reason)) + " '" + change.before + "' -> '" +
         change.after + "'\n";
}

TEST(CatalogueChanges, Cases) {
  test::CheckCases("changes.txt", [](const test::TextCase& given) {
    const bool faults = given.head.ends_with("faults");
    const CatalogueContent before = ContentOf(given, '-');
    const CatalogueContent after = ContentOf(given, '+');
    const CatalogueRules rules = RulesOf(given.head);
    std::string text;
    for (const auto& change :
         faults ? FaultsOf(before, after, rules) : ChangesBetween(before, after, rules))
      text += Text(change);
    return text.empty() ? "none\n" : text;
  });
}

}  // namespace
}  // namespace zek
