#include <gtest/gtest.h>

#include "app/StartSession.h"
#include "export/BatchExport.h"
#include "support/SessionPlayer.h"
#include "system/Paths.h"

namespace zek {
namespace {

const std::string kFolder = WithSeparator("/zek/Batch");

// A plant with a ZEK1 and a ZEK2 controller, each with two time controls.
//   batch WDC SDC             an export of these kinds; its result and what the controllers got
//   skv WDC, report           one of its files; the report stored beside them
//   at VS1 full disk          a command to run at this time control, or at the "end"
//   stop 500                  a cancel
class BatchPlayer : public test::SessionPlayer {
 public:
  BatchPlayer() {
    std::string& ini = files.files["/ini/ZEKView.INI"];
    ini.insert(ini.find("[TWO]"), "VS1=  Plant 1/DUC 1\r\n");
    proc.now = [] { return LocalTime{2026, 11, 21, 8, 30, 59}; };
    batch.Selected = [this](std::size_t node) { OnSelected(node); };
    Load("");
    prompts.shown.clear();
  }

  // Starts an export that never ends.
  void Abandon(std::size_t steps) {
    proc.batch.Kinds = {true, false, false};
    BatchExport abandoned(proc);
    abandoned.Selected = batch.Selected;
    abandoned.Start();
    while (proc.batch.Step < steps) abandoned.Tick();
  }

 protected:
  std::string Do(const std::string& what, const std::string& rest) override {
    if (what == "at") at_[rest.substr(0, rest.find(' '))] = rest.substr(rest.find(' ') + 1);
    if (what == "stop") turn.After(std::stoi(rest), [this] { batch.Cancel(); });
    if (what == "stop") turn.After(std::stoi(rest) + 200, [this] { batch.Tick(); });  // nested
    if (what == "note") proc.batch.Notes = {rest};
    if (what == "cut") proc.batch.PlantCut = true;
    if (what == "empty") proc.tree.clear();
    if (what == "well") files.failWrites.reset();
    if (what == "skv") return FileText(rest + "261121_083059.SKV");
    if (what == "report") {
      batch.StoreReport();
      return FileText("BATCH261121_083059.TXT") + Told();
    }
    return what == "batch" ? Exported(rest) : SessionPlayer::Do(what, rest);
  }

 private:
  void OnSelected(std::size_t node) {
    const TreeNode& control = proc.tree[node];
    pieces = control.Object == 0;
    std::string command = at_[control.TscName];
    if (proc.batch.State == BatchState::OvcPass) command += at_["end"];
    const std::size_t blank = std::min(command.find(' '), command.size());
    Do(command.substr(0, blank), command.substr(std::min(blank + 1, command.size())));
  }

  std::string FileText(const std::string& name) {
    const auto file = files.files.find(kFolder + name);
    return file == files.files.end() ? "no file" : Shown(test::Filled(file->second));
  }

  std::string Exported(const std::string& kinds) {
    const auto has = [&kinds](const char* kind) { return kinds.find(kind) != std::string::npos; };
    proc.batch.Kinds = {has("WDC"), has("SDC"), has("OVC")};
    StartTime();
    batch.Start();
    while (batch.Tick()) {
    }
    const BatchReport& report = batch.Report();
    std::string outcome = test::Filled(report.Headline(proc.texts));
    if (proc.batch.Succeeded) outcome += ", succeeded";
    for (const std::string& line : report.Failures(proc.texts))
      outcome += "; " + Shown(test::Filled(line));
    outcome += "; " + std::to_string(report.files.size()) + " files, status " +
               test::Filled(proc.status.Transfer);
    std::erase(commands, "\x05");
    return outcome + Told() + Got() +
           (proc.waits.Stopped() || proc.batch.BatchBusy ? " not at rest" : "");
  }

  BatchExport batch{proc};
  std::map<std::string, std::string> at_;
};

TEST(BatchExport, Cases) {
  test::CheckCases("batch.txt", [](const test::TextCase& given) {
    BatchPlayer player;
    const auto common = test::CasesOf("batch-plant.txt");
    player.PlayAll(common.at(0).given);
    return player.PlayAll(given.given);
  });
}

TEST(BatchExport, AnAbandonedBatchKeepsWhatItHas) {
  BatchPlayer player;
  player.PlayAll(test::CasesOf("batch-plant.txt").at(0).given);
  player.Abandon(2);
  EXPECT_FALSE(player.proc.batch.IsRunning());
  const std::string& file = player.files.files[kFolder + "WDC261121_083059.SKV"];
  EXPECT_NE(file.find("Heating ;Start;07:00"), std::string::npos);
  EXPECT_TRUE(file.ends_with("Batch stoppad 26-11-21 08:30:59\r\n"));
}

TEST(BatchFile, TheFirstFaultIsTheOneThatIsTold) {
  using Reason = FileError::Reason;
  for (const std::optional<Reason> closing : {std::optional<Reason>(), {Reason::Denied}}) {
    test::MemoryFiles disk;
    BatchFile file(Catalogue::Wdc);
    file.Open(disk, "/b", {});
    disk.failWrites = Reason::Full;
    file.WriteHeader({});
    disk.failWrites = closing;
    file.WriteFinished({});
    file.Close();
    ASSERT_TRUE(file.Error());
    EXPECT_EQ(file.Error()->reason, Reason::Full);
    EXPECT_EQ(file.IsInPlace(), !closing);
  }
}

TEST(BatchExport, TopicsAndLabelsThatAreLeftOutAreNoSuccess) {
  test::TestSession session;
  LoadTopics(session.proc);
  LoadTree(session.proc);
  EXPECT_FALSE(session.proc.batch.PlantCut);
  session.files.files["/ini/ZEKView.INI"] += "[LOC]\r\nAHU1=a [b]\r\n";
  LoadTree(session.proc);
  EXPECT_TRUE(session.proc.batch.PlantCut);
}

}  // namespace
}  // namespace zek
