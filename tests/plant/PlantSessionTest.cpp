#include <gtest/gtest.h>

#include "plant/PlantFixture.h"
#include "plant/PlantSession.h"
#include "text/Windows1252.h"

namespace zek::sim {
namespace {

using Lines = std::vector<std::string>;

struct Exchange {
  std::string command;
  Lines reply;  // kRefused for a refusal
};
const Lines kOk = {"OK"};
const Lines kRefused = {"(refused)"};
const Lines kMissing = {"ERROR SAKNAS"};
constexpr std::string_view kUnknownText = "OKÄNT KOMMANDO"_w1252;
const Lines kUnknown = {std::string(kUnknownText)};

void Replay(Outstation& outstation, const std::vector<Exchange>& dialogue) {
  PlantSession session(outstation);
  for (const auto& [command, wanted] : dialogue) {
    const PlantReply reply = session.Answer(command);
    EXPECT_EQ(reply.refused ? kRefused : reply.lines, wanted) << command;
  }
}

const std::string kWeekday =
    " 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17";
const std::string kChanged =
    " 1000 !TSC1        !MO..FR       !06:00..16:30             !21       !17";
const std::string kAdded =
    "  999 !TSC1        !SU           !06:00                    !21       !.";
const std::string kDate = " 1000 !24-DEC-26                                           !SD1";
const std::string kMoment = "    1 !TSC1        !24-DEC-26,08:00                        !.!.";

TEST(PlantSession, Zek1) {
  Plant plant = SmallPlant();
  Replay(plant.outstations[0], {{"\x05", {"ZEK1"}},
                                {"", kOk},
                                {"EXIT", kOk},
                                {"LIST WDC", {"VECKODAGAR", kWeekday, "EXIT"}},
                                {"list sdc", {"SPECIALDAGAR", kDate, "EXIT"}},
                                {"LIST OVC", {"UNDANTAG", kMoment, "EXIT"}},
                                {"LIST TSC1", kMissing},
                                {"TSC1.WDC", kRefused},
                                {".EXC", kRefused},
                                {"TSC1.DFV=1", kUnknown},
                                {kChanged, kUnknown},  // nothing is selected
                                {".WDC", kOk},
                                {kChanged, kOk},
                                {kAdded, kOk},
                                {kDate, kRefused},
                                {"LIST WDC", kRefused},
                                {"\x05", {"ZEK1"}},
                                {"EXIT", kOk},
                                {"LIST WDC", {"VECKODAGAR", kAdded, kChanged, "EXIT"}},
                                {".OVC", kOk},
                                {kMoment, kOk},
                                {".SDC", kOk},
                                {kDate, kOk},
                                {kMoment, kRefused}});
  EXPECT_TRUE(plant.outstations[0].changed);
}

TEST(PlantSession, Zek2) {
  const std::string week = " 701  MO..FR                   !07:00..16:30 !21    ";
  const std::string more = " 702  SA                       !07:00..16:30 !20    ";
  const std::string moment = "1     24-DEC-2026              !08:00..17:00 !21    !16";
  const std::string later = "12    25-DEC-2026              !08:00..17:00 !21    !16";
  Plant plant = SmallPlant();
  Replay(plant.outstations[1],
         {{"\x05", {"ZEK2"}},
          {"LIST PLT7", {"VECKODAGAR", week, ".DFV = 21.5", ".EXC", moment, "EXIT"}},
          {"LIST plt7.exc", {"UNDANTAG", moment, ".DFV = 21.5", "EXIT"}},
          {"LIST AHU1", {"VECKODAGAR", ".EXC", "EXIT"}},
          {"LIST SDC", {"SPECIALDAGAR", "EXIT"}},
          {"LIST WDC", kMissing},
          {"LIST AHU9.EXC", kMissing},
          {".WDC", kRefused},
          {"AHU9.WDC", kRefused},
          {"PLT7.WDC", kOk},
          {more, kOk},
          {moment, kRefused},
          {"PLT7.DFV=.", kOk},
          {"PLT7.DFV=", kRefused},
          {"PLT7.DFV=warm", kRefused},
          {"AHU9.DFV=1", kRefused},
          {"EXIT", kOk},
          {"PLT7.EXC", kOk},
          {later, kOk},
          {"EXIT", kOk},
          {"LIST PLT7", {"VECKODAGAR", week, more, ".DFV = .", ".EXC", moment, later, "EXIT"}},
          {"AHU1.DFV=18,5", kOk},
          {"LIST AHU1", {"VECKODAGAR", ".DFV = 18,5", ".EXC", "EXIT"}}});
}

TEST(PlantSession, AFullCatalogueTakesReplacementsOnly) {
  Plant plant = SmallPlant();
  Outstation& outstation = plant.outstations[0];
  PlantSession session(outstation);
  session.Answer(".WDC");
  int refused = 0;
  for (int number = 1; number <= 2000; ++number) {
    const std::string digits = std::to_string(number);
    const std::string line = std::string(5 - digits.size(), ' ') + digits + kWeekday.substr(5);
    if (session.Answer(line).refused) ++refused;
  }
  EXPECT_EQ(outstation.weekday.lines.size(), kMostLines);
  EXPECT_EQ(refused, 2000 - static_cast<int>(kMostLines));
}

}  // namespace
}  // namespace zek::sim
