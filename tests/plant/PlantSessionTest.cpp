#include <gtest/gtest.h>

#include "plant/PlantFixture.h"
#include "plant/PlantOptions.h"
#include "plant/PlantSession.h"
#include "support/CaseFile.h"
#include "text/Fields.h"

namespace zek::sim {
namespace {

TEST(PlantSession, Cases) {
  test::CheckCases("plant-sessions.txt", [](const test::TextCase& given) {
    Plant plant = SmallPlant();
    Outstation& outstation = plant.outstations[given.head.starts_with("ZEK2") ? 1 : 0];
    const std::string replaces(GetField(given.head, 1, " "));
    outstation.replaces = ReadPlantOptions({"--replace", replaces}).replaces;
    PlantSession session(outstation);
    std::string outcome;
    for (const std::string& command : given.given) {
      const PlantReply reply = session.Answer(command);
      if (reply.refused) outcome += "(refused)\n";
      for (const std::string& line : reply.lines) outcome += line + "\n";
    }
    EXPECT_TRUE(outstation.changed);
    return outcome;
  });
}

TEST(PlantSession, AFullCatalogueTakesReplacementsOnly) {
  Plant plant = SmallPlant();
  Outstation& outstation = plant.outstations[0];
  PlantSession session(outstation);
  session.Answer(".WDC");
  int refused = 0;
  for (int number = 1; number <= 2000; ++number) {
    const std::string digits = std::to_string(number);
    const std::string line = std::string(5 - digits.size(), ' ') + digits +
                             " !TSC1        !SU           !06:00                    !21       !.";
    if (session.Answer(line).refused) ++refused;
  }
  EXPECT_EQ(outstation.weekday.lines.size(), kMostLines);
  EXPECT_EQ(refused, 2000 - static_cast<int>(kMostLines));
}

}  // namespace
}  // namespace zek::sim
