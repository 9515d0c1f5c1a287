#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "plant/PlantConversation.h"
#include "plant/PlantFolder.h"
#include "plant/PlantLine.h"
#include "plant/PlantOptions.h"
#include "support/SourceTree.h"
#include "support/TemporaryFolder.h"

namespace zek::sim {
namespace {

namespace fs = std::filesystem;

class PlantFolder : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& text) const {
    const fs::path path = root_ / PathOf(name);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
  }
  std::string Read(const std::string& name) const {
    std::ifstream file(root_ / PathOf(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  LoadedPlant Load() const { return LoadPlant(Utf8Of(root_)); }

  test::TemporaryFolder temporary_;
  fs::path root_ = temporary_.Path();
};

TEST_F(PlantFolder, DemoPlantHoldsOnlyLinesItWouldTake) {
  LoadedPlant demo = LoadPlant(test::SourceTree() + "/data/demo/plant");
  ASSERT_EQ(demo.error, "");
  Outstation* const school = demo.plant.FindTransparent();
  Outstation* const office = demo.plant.FindDus(3);
  ASSERT_TRUE(school != nullptr && office != nullptr);
  EXPECT_EQ(office->controls.size(), 5U);
  const auto check = [](const PlantCatalogue& catalogue, const auto& isTaken) {
    for (const auto& [number, line] : catalogue.lines) EXPECT_TRUE(isTaken(line)) << line;
  };
  check(school->weekday, IsZek1WeekdayLine);
  for (const Outstation* each : {school, office}) {
    const Generation generation = each->generation;
    check(each->calendar, [=](auto& line) { return IsCalendarLine(line, generation); });
    check(each->exceptions, [=](auto& line) { return IsExceptionLine(line, generation); });
    for (const TimeControl& control : each->controls) {
      check(control.weekday, [&](auto& line) { return IsZek2WeekdayLine(line, control.name); });
      check(control.exceptions, [=](auto& line) { return IsExceptionLine(line, generation); });
    }
  }
}

TEST_F(PlantFolder, ChangesAreKept) {
  Write("HUS/OUTSTATION.TXT", "; comment\r\nKind = 2\r\nDus = 3\r\n");
  Write("HUS/K\xC3\x96K.WDC.TXT", "R\xD6ST\r\n.DFV = 21 ! comment\r\nEXIT\r\n");
  Write("HUS/PLT7.EXC.TXT", "1     24-DEC-2026              !08:00..17:00 !21    !16\n");
  LoadedPlant loaded = Load();
  ASSERT_EQ(loaded.error, "");
  PlantConversation conversation(loaded.plant);
  conversation.Receive(
      "DUS:3\rPLT7.WDC\r 701  SU                       !07:00..16:30 !21    \r"
      "PLT7.DFV=18\rEXIT\r");
  Outstation& outstation = loaded.plant.outstations[0];
  EXPECT_TRUE(outstation.changed);
  EXPECT_EQ(SavePlantOutstation(Utf8Of(root_), outstation), "");
  EXPECT_EQ(Read("HUS/PLT7.WDC.TXT"),
            "VECKODAGAR\r\n 701  SU                       !07:00..16:30 !21    \r\n"
            ".DFV = 18\r\nEXIT\r\n");
  EXPECT_EQ(Read("HUS/K\xC3\x96K.WDC.TXT"), "R\xD6ST\r\n.DFV = 21\r\nEXIT\r\n");

  LoadedPlant again = Load();
  ASSERT_EQ(again.error, "");
  ASSERT_NE(again.plant.FindDus(3), nullptr);
  TimeControl* const control = again.plant.FindDus(3)->FindControl("plt7");
  ASSERT_NE(control, nullptr);
  EXPECT_EQ(control->defaultValue, "18");
  EXPECT_EQ(control->exceptions.lines.size(), 1U);
  EXPECT_NE(again.plant.FindDus(3)->FindControl("k\xF6k"), nullptr);
}

std::string Numbered(std::size_t lines) {
  std::string text;
  for (std::size_t line = 1; line <= lines; ++line) text += std::to_string(line) + " x\n";
  return text;
}

TEST_F(PlantFolder, FaultsNameTheFileAndThePlace) {
  struct Case {
    std::string file;
    std::string text;
    std::string wanted;
  };
  const std::vector<Case> cases = {
      {"HUS/OUTSTATION.TXT", "Kind = 3\n", "HUS/OUTSTATION.TXT: line 1: expected"},
      {"HUS/OUTSTATION.TXT", "\nDus = 0\n", "HUS/OUTSTATION.TXT: line 2: expected"},
      {"HUS/OUTSTATION.TXT", "Dus = 32768\n", "HUS/OUTSTATION.TXT: line 1: expected"},
      {"HUS/WDC.TXT", "HEAD\n5 a\n5 b\n", "HUS/WDC.TXT: line 3: the number 5 occurs twice"},
      {"HUS/WDC.TXT", Numbered(kMostLines + 1), "HUS/WDC.TXT: line"},
      {"HUS/SDC.TXT", "HEAD\nHEAD\n", "HUS/SDC.TXT: line 2: begins with no line number"},
      {"HUS/OVC.TXT", std::string("1 a\0b\n", 6), "HUS/OVC.TXT: line 1: longer than"},
      {"HUS/OVC.TXT", std::string(2 << 20, 'x'), "HUS/OVC.TXT: larger than 1 MiB"},
      {"HUS/AHU1.WDC.TXT", "", "HUS/AHU1.WDC.TXT: not SDC.TXT"},
      {"TVÅ/SDC.TXT", "", "TVÅ/OUTSTATION.TXT: cannot be read"},
  };
  for (const Case& each : cases) {
    fs::remove_all(root_);
    Write("HUS/OUTSTATION.TXT", "Kind = 1\n");
    Write(each.file, each.text);
    const LoadedPlant loaded = Load();
    const std::string wanted = Utf8Of(PathOf(each.wanted).make_preferred());
    EXPECT_NE(loaded.error.find(wanted), std::string::npos) << loaded.error;
    EXPECT_TRUE(loaded.plant.outstations.empty());
  }
  fs::remove_all(root_);
  Write("HUS/OUTSTATION.TXT", "Dus = 32767\n");
  Write("HUS/SDC.TXT", Numbered(kMostLines));
  EXPECT_EQ(Load().error, "");
  fs::remove_all(root_);
  EXPECT_NE(Load().error.find(Utf8Of(root_)), std::string::npos);
  Write("A/OUTSTATION.TXT", "Dus = 3\n");
  Write("B/OUTSTATION.TXT", "Dus = 3\n");
  EXPECT_NE(Load().error.find("B: another outstation has"), std::string::npos);
}

TEST(PlantOptions, AreReadOrRefused) {
  const PlantOptions options =
      ReadPlantOptions({"--keep", "--port", "65535", "--plant", "x y", "--dde", "A", "--dde", "B"});
  EXPECT_EQ(options.error, "");
  EXPECT_EQ(options.port, 65535);
  EXPECT_EQ(options.folder, "x y");
  EXPECT_TRUE(options.keep && !options.verbose);
  const std::vector<std::vector<std::string>> wrong = {
      {"--port"},  {"--port", "65536"}, {"--port", "-1"}, {"--port", "80x"},  {"--port", ""},
      {"--plant"}, {"extra"},           {"--keep=yes"},   {"--replace", "1"}, {"--replace", "all"}};
  for (const auto& arguments : wrong) {
    EXPECT_NE(ReadPlantOptions(arguments).error, "") << arguments.back();
  }
}

}  // namespace
}  // namespace zek::sim
