// Applies one plan to a plant of forty controllers, killed at random moments and run again. The end
// must be that of one clean run, and what was reported as done must get no command that writes.

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "plan/Applying.h"
#include "plan/ChangeList.h"
#include "plan/PlanFile.h"
#include "plan/Planning.h"
#include "plant/PlantConversation.h"
#include "support/TestSession.h"

namespace zek::faults {
namespace {

constexpr int kObjects = 40;
constexpr int kControls = 4;
constexpr int kZek1Every = 4;
constexpr int kFirstPort = 5000;
constexpr auto kIni = "/ini/ZEKView.INI";
constexpr auto kPlan = "/zek/plan.txt";
constexpr auto kChanges =
    "+ sdc 2027-01-01 SD1\n+ sdc 2027-01-06 SD1\n+ sdc 2027-03-26..2027-03-29 SD1\n"
    "+ sdc 2027-05-06 SD1\n+ sdc 2027-06-25..2027-06-26 SD2\n+ sdc 2027-12-24..2027-12-26 SD1\n"
    "+ ovc 2027-06-24T12:00 2027-06-26T23:00 16 -\n+ wdc MO..FR 05:00..06:30 21 17\n";

using Disk = std::map<std::string, std::string>;
using Plant = std::vector<sim::Outstation>;

std::string ObjectName(int object) { return "DUC" + std::to_string(object); }
std::string ControlName(int control) { return "AHU" + std::to_string(control); }
bool IsZek1(int object) { return object % kZek1Every == 0; }

sim::PlantCatalogue CatalogueOf(const std::vector<std::string>& lines) {
  sim::PlantCatalogue catalogue{"KATALOG", {}};
  for (const std::string& line : lines) catalogue.lines[std::stoi(line)] = line;
  return catalogue;
}

sim::Outstation ControllerOf(int object, sim::Replaces replaces) {
  sim::Outstation duc;
  duc.replaces = replaces;
  if (IsZek1(object)) {
    duc.calendar = CatalogueOf({" 1010 !24-DEC-26..26-DEC-26                                !SD1",
                                " 1011 !01-MAY-27                                           !SD2"});
    duc.weekday =
        CatalogueOf({" 1000 !AHU1        !MO..FR       !07:00..16:30             !21       !17",
                     " 1001 !FAN9        !MO           !08:00                    !1        !.",
                     " 1002 !AHU0        !SU           !09:00..10:00             !1        !2"});
    duc.exceptions =
        CatalogueOf({"    3 !AHU2        !24-DEC-26,07:00..26-DEC-26,17:00       !21       !16",
                     "    4 !FAN9        !24-DEC-26,07:00                        !1        !.",
                     "    7 !AHU0        !23-DEC-26,07:00                        !1        !."});
    return duc;
  }
  duc.generation = Generation::Zek2;
  duc.calendar = CatalogueOf({" 1010 !24-DEC-2026..26-DEC-2026                            !SD1",
                              " 1011 !01-MAY-2027                                         !SD2"});
  for (int control = 0; control < kControls; ++control) {
    duc.controls.push_back({ControlName(control), {"KATALOG", {}}, {"KATALOG", {}}, "18"});
    if (control > 1) continue;
    duc.controls.back().exceptions =
        CatalogueOf({"5     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16"});
    duc.controls.back().weekday =
        CatalogueOf({" 1005 !" + ControlName(control) +
                     "        !SA           !07:00..16:30             !21       !17"});
  }
  return duc;
}

Plant NewPlant(sim::Replaces replaces) {
  Plant plant;
  for (int object = 0; object < kObjects; ++object) plant.push_back(ControllerOf(object, replaces));
  return plant;
}

std::string Ini() {
  std::string topics = "[Topics]\r\n";
  std::string sections;
  for (int object = 0; object < kObjects; ++object) {
    const std::string name = ObjectName(object);
    topics.append(name).append(IsZek1(object) ? "=YES,1" : "=YES,2").append(",HOST:");
    topics.append(std::to_string(kFirstPort + object)).append(",School ").append(name) += "\r\n";
    sections.append("[").append(name) += "]\r\n";
    for (int control = 0; control < kControls; ++control)
      sections += ControlName(control) + "=Air\r\n";
  }
  std::string ini =
      "[General]\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\nDisconnectDelay=0\r\n"
      "SDCLastTwoDigitYear=93\r\nSDCLastYear=2099\r\n";
  for (const char* section : {"[GetDelay]\r\n", "[SaveDelay]\r\n"}) {
    ini += section;
    for (const char key : std::string("ABCDEFGH")) ini += std::string("Delay") + key + "=0\r\n";
  }
  return ini + topics + sections;
}

std::string LinesOf(const Plant& plant) {
  std::string all;
  const auto add = [&all](const sim::PlantCatalogue& catalogue) {
    for (const auto& [number, line] : catalogue.lines) all += line + "\n";
    all += "\n";
  };
  for (const sim::Outstation& duc : plant) {
    add(duc.calendar);
    add(duc.weekday);
    add(duc.exceptions);
    for (const sim::TimeControl& control : duc.controls) {
      add(control.weekday);
      add(control.exceptions);
    }
  }
  return all;
}

/// One start of the program. It can be killed at a command: then nothing reaches a controller or
/// the disk any more.
class Start : private test::TestSession {
 public:
  Start(Plant& plant, const Disk& disk) : plant_(plant) {
    files.files = disk;
    files.files.try_emplace(kIni, Ini());
    Load("");
    socket.onConnected = [this] {
      target_ = std::stoi(socket.opened.back().service) - kFirstPort;
      socket.Say(talk_.emplace(plant_.at(static_cast<std::size_t>(target_))).Greeting());
    };
    socket.onSent = [this](std::string_view bytes) { Take(bytes); };
  }

  void MakePlan() {
    std::vector<std::string> nodes;
    nodes.reserve(kObjects);
    for (int object = 0; object < kObjects; ++object) nodes.push_back(ObjectName(object));
    Planner planner(proc, [this](const PlanLine& line) { Add(line); });
    const ChangeList list = ReadChangeList(kChanges);
    EXPECT_FALSE(list.bad);
    files.files[kPlan] = BuildPlanFile(planner.Make(list.changes, nodes));
  }

  /// `killAt` is the number of the command; 0: never.
  void Apply(int killAt, bool beforeIt) {
    killAt_ = killAt;
    beforeIt_ = beforeIt;
    const PlanReading reading = ReadPlanFile(files.files[kPlan]);
    StartedNote started(files, kPlan, reading.checksum);
    Applier applier(proc, started, [this](const PlanLine& line) { Add(line); });
    applier.Run(reading.plan);
  }

  Disk OnDisk() const { return killed_ ? disk_ : files.files; }
  Disk Copies() const {
    Disk copies = files.files;
    std::erase_if(copies, [](const auto& file) {
      return file.first.find_last_of("/\\") > 4 || file.first.find("School") == std::string::npos;
    });
    return copies;
  }
  int Commands() const { return commands_; }
  std::size_t Count(const std::string& word) const {
    return static_cast<std::size_t>(std::count(words_.begin(), words_.end(), word));
  }
  const std::set<std::string>& Done() const { return done_; }
  const std::set<std::string>& Written() const { return written_; }

 private:
  void Add(const PlanLine& line) {
    if (killed_) return;
    words_.emplace_back(TextOf(line.word));
    if (line.word == PlanWord::Done) done_.insert(line.node + " " + line.kind);
  }

  void Take(std::string_view bytes) {
    if (killed_) return;
    ++commands_;
    const bool kill = commands_ == killAt_;
    if (kill && beforeIt_) return Kill();
    for (const std::string_view kind : {".SDC\r", ".WDC\r", ".OVC\r", ".EXC\r"})
      if (bytes.ends_with(kind) && !bytes.starts_with("LIST")) written_.insert(SelectedBy(bytes));
    const std::string reply = talk_->Receive(bytes);
    if (kill) return Kill();
    if (!reply.empty()) socket.Say(reply, 10);
  }

  // ".SDC", ".OVC" or "AHU1.EXC" at a controller, as `PlanLine` names it.
  std::string SelectedBy(std::string_view bytes) const {
    const std::string_view control = bytes.substr(0, bytes.find('.'));
    const std::string kind = bytes.ends_with(".SDC\r")   ? " sdc"
                             : bytes.ends_with(".WDC\r") ? " wdc"
                                                         : " ovc";
    return ObjectName(target_) + (control.empty() ? "" : "/" + std::string(control)) + kind;
  }

  void Kill() {
    disk_ = files.files;
    killed_ = true;
    socket.reachable = false;
    turn.Quit();
  }

  Plant& plant_;
  std::optional<sim::PlantConversation> talk_;
  int target_ = 0;
  int commands_ = 0;
  int killAt_ = 0;
  bool beforeIt_ = false;
  bool killed_ = false;
  Disk disk_;
  std::vector<std::string> words_;
  std::set<std::string> done_;
  std::set<std::string> written_;
};

class PlanTrial : public testing::TestWithParam<std::pair<const char*, sim::Replaces>> {
 protected:
  PlanTrial() : planned_(NewPlant(GetParam().second)) {
    Start planning(planned_, {});
    const std::string before = LinesOf(planned_);
    planning.MakePlan();
    EXPECT_EQ(LinesOf(planned_), before);
    disk_ = planning.OnDisk();
    Plant plant = planned_;
    Start clean(plant, disk_);
    clean.Apply(0, false);
    catalogues_ = clean.Done().size();
    commands_ = clean.Commands();
    end_ = LinesOf(plant);
    copies_ = clean.Copies();
    EXPECT_EQ(catalogues_, planning.Count("change"));
    EXPECT_EQ(copies_.size(), catalogues_);
  }

  /// Returns what was wrong, or "".
  std::string KilledAt(int command, bool beforeIt) const {
    Plant plant = planned_;
    Start killed(plant, disk_);
    killed.Apply(command, beforeIt);
    Start again(plant, killed.OnDisk());
    again.Apply(0, false);
    if (LinesOf(plant) != end_) return "another end";
    if (again.Copies() != copies_) return "other local copies";
    if (again.Count("done") + again.Count("already") != catalogues_) return "not all done";
    for (const std::string& done : killed.Done())
      if (again.Written().contains(done)) return "written again: " + done;
    if (again.OnDisk().contains(StartedNote::PathOf(kPlan))) return "the note is left";
    Start third(plant, again.OnDisk());
    third.Apply(0, false);
    return third.Count("already") == catalogues_ && third.Written().empty() ? "" : "not at rest";
  }

  Plant planned_;
  Disk disk_;
  std::size_t catalogues_ = 0;
  int commands_ = 0;
  std::string end_;
  Disk copies_;
};

TEST_P(PlanTrial, EndsTheSameWheneverItIsKilled) {
  const int kills = std::getenv("ZEKVIEW_FULL") != nullptr ? 100 : 3;
  std::mt19937 random(7);
  int right = 0;
  for (int kill = 0; kill < kills; ++kill) {
    const int command = std::uniform_int_distribution<int>(1, commands_)(random);
    const bool beforeIt = random() % 2 == 0;
    const std::string wrong = KilledAt(command, beforeIt);
    EXPECT_EQ(wrong, "") << "killed at command " << command << (beforeIt ? " (before it)" : "");
    right += wrong.empty() ? 1 : 0;
  }
  std::cout << "figure: plans that were killed, " << GetParam().first << ": " << right << " of "
            << kills << "\n";
}

INSTANTIATE_TEST_SUITE_P(Each, PlanTrial,
                         testing::Values(std::pair("ByNumber", sim::Replaces::Number),
                                         std::pair("ByControl", sim::Replaces::Control),
                                         std::pair("ByCatalogue", sim::Replaces::Catalogue)),
                         [](const auto& each) { return each.param.first; });

}  // namespace
}  // namespace zek::faults
