#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

#include "app/StartSession.h"
#include "export/BatchExport.h"
#include "support/TransferSession.h"
#include "system/Paths.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;

const std::string kStamp = "261121_083059";
const std::string kFolder = WithSeparator("/zek/Batch");
const std::string kWdc = kFolder + "WDC" + kStamp + ".SKV";
const std::string kSdc = kFolder + "SDC" + kStamp + ".SKV";
const std::string kOvc = kFolder + "OVC" + kStamp + ".SKV";
const std::string kFinished = "Batch avslutad 26-11-21 08:30:59\r\n";
const std::string kStopped = "Batch stoppad 26-11-21 08:30:59\r\n";

// A plant of an old controller with two time controls and a modern one with two.
class BatchExportTest : public ::testing::Test, protected test::TransferSession {
 protected:
  BatchExportTest() {
    ReplaceInSettings("[TWO]", "VS1=  Plant 1/DUC 1\r\n[TWO]");
    Load("");
    proc.now = [] { return LocalTime{2026, 11, 21, 8, 30, 59}; };
    batch.Selected = [this](std::size_t node) { Answer(node); };
    answers["LIST WDC"] =
        " 1000 !AHU1        !MO..FR       !07:00..16:30             !21        !17         \r\n"
        " 1001 !VS1         !SD2          !08:00                    !1         !.          \r\n"
        "EXIT\r\n";
    answers["LIST TSC1"] = "EXIT\r\n";
    answers["LIST PLT7"] = "EXIT\r\n";
    answers["LIST OVC"] = "EXIT\r\n";
    answers["LIST TSC1.EXC"] = "EXIT\r\n";
    answers["LIST PLT7.EXC"] = "EXIT\r\n";
  }

  // Framing and calendar layout are those of the node's controller.
  void Answer(std::size_t node) {
    pieces = proc.tree[node].Object == 0;
    answers["LIST SDC"] = pieces ? " 1000 !24-DEC-20              !SU\r\nEXIT\r\n"
                                 : " 1000 !24-DEC-2026            !SD1\r\nEXIT\r\n";
  }

  void ReplaceInSettings(const std::string& from, const std::string& to) {
    std::string& ini = files.files["/ini/ZEKView.INI"];
    const std::size_t at = ini.find(from);
    if (at != std::string::npos) ini.replace(at, from.size(), to);
  }

  const BatchReport& Run(BatchKinds kinds = {}) {
    proc.batch.Kinds = kinds;
    batch.Start();
    while (batch.Tick()) {
    }
    return batch.Report();
  }

  std::size_t Fetches(std::string_view command) const {
    return static_cast<std::size_t>(std::count(commands.begin(), commands.end(), command));
  }

  Shown Failures() const {
    Shown lines;
    for (const BatchFailure& failure : batch.Report().failures) lines.push_back(failure.Line());
    return lines;
  }

  BatchExport batch{proc};
};

constexpr std::string_view kWeekdayRecords =
    "Plant 1;DUC 1;Heating ;Start;07:00;07:00;07:00;07:00;07:00;;;;;;;;;;\r\n"
    ";;;Stopp;16:30;16:30;16:30;16:30;16:30;;;;;;;;;;\r\n"
    ";;;Startvärde;21;21;21;21;21;;;;;;;;;;\r\n"
    ";;;Stoppvärde;17;17;17;17;17;;;;;;;;;;\r\n"
    "Plant 1;DUC 1 ;;Start;;;;;;;;;08:00;;;;;;\r\n"
    ";;;Stopp;;;;;;;;;;;;;;;\r\n"
    ";;;Startvärde;;;;;;;;;1;;;;;;\r\n"
    ";;;Stoppvärde;;;;;;;;;;;;;;;\r\n"_w1252;
constexpr std::string_view kWeekdayHeader =
    "Batch påbörjad 26-11-21 08:30:59/Objekt;DUC;Destionation;Mån;Tis;Ons;Tor;Fre;Lör;Sön;SD1;SD2;"
    "SD3;SD4;SD5;SD6;SD7;\r\n"_w1252;
constexpr std::string_view kCalendarHeader =
    "Batch påbörjad 26-11-21 08:30:59/Objekt;DUC;Datum;DagTyp\r\n"_w1252;
constexpr std::string_view kExceptionHeader =
    "Batch påbörjad 26-11-21 08:30:59/Objekt;DUC;Destionation;StartDatum;StartTid;StartVärde;"
    "StoppDatum;StoppTid;StoppVärde\r\n"_w1252;

TEST_F(BatchExportTest, WritesTheFilesByteForByte) {
  const BatchReport& report = Run();
  EXPECT_TRUE(report.Succeeded());
  EXPECT_EQ(report.files, (Shown{kWdc, kSdc, kOvc}));
  EXPECT_EQ(files.files[kWdc],
            std::string(kWeekdayHeader) + std::string(kWeekdayRecords) + kFinished);
  EXPECT_EQ(files.files[kSdc],
            std::string(kCalendarHeader) +
                "Plant 1;DUC 1;2020-12-24;SU\r\nPlant 1;DUC 1 ;2020-12-24;SU\r\n"
                "Plant 2;DUC 3;2026-12-24;SD1\r\nPlant 2;DUC 3;2026-12-24;SD1\r\n" +
                kFinished);
  EXPECT_EQ(files.files[kOvc], std::string(kExceptionHeader) + kFinished);
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(proc.status.Transfer, "T628");
}

TEST_F(BatchExportTest, WithoutHeadersOnlyRecordsAndOnlyTheCheckedKinds) {
  profile.WriteIni("General", "IncludeBatchHeader", "no");
  EXPECT_TRUE(Run({true, false, false}).Succeeded());
  EXPECT_EQ(files.files[kWdc], kWeekdayRecords);
  EXPECT_FALSE(files.files.contains(kSdc) || files.files.contains(kOvc));
  EXPECT_EQ(Fetches("LIST SDC") + Fetches("LIST OVC"), 0U);
}

TEST_F(BatchExportTest, ACatalogueThatControlsShareIsFetchedOnce) {
  Run({true, true, false});
  EXPECT_EQ(Fetches("LIST WDC"), 1U);
  EXPECT_EQ(Fetches("LIST SDC"), 3U) << "one of the old controller, two of the modern one";
  proc.settings.AlwaysUseDSS = true;
  commands.clear();
  Run({true, false, false});
  EXPECT_EQ(Fetches("LIST WDC"), 2U);
}

TEST_F(BatchExportTest, ACopyFromBeforeTheBatchIsNotUsed) {
  files.files["/zek/f127_0_0_1_5100 First WDC.TXT"] = " 1000 !AHU1!MO!01:00!1!0\r\n";
  Run({true, false, false});
  EXPECT_EQ(Fetches("LIST WDC"), 1U);
}

TEST_F(BatchExportTest, LocalModeTakesCopiesAndMissesTheMissing) {
  Run({true, false, false});
  commands.clear();
  files.files.erase("/zek/f127_0_0_1_5100_3 Second PLT7.TXT");
  proc.settings.LocalMode = true;
  const BatchReport& report = Run({true, false, false});
  EXPECT_TRUE(commands.empty());
  EXPECT_EQ(report.exported, 3U);
  EXPECT_EQ(Failures(), Shown{"TWO/PLT7 WDC: T418 T419"});
}

TEST_F(BatchExportTest, TheWalkGoesOnPastWhatFails) {
  socket.onConnected = [this] {
    if (pieces) {
      socket.Break(1);  // the old controller breaks off
    }
  };
  answers["LIST TSC1"] = "ERROR 5\r\n";
  answers.erase("LIST PLT7.EXC");
  const BatchReport& report = Run();
  EXPECT_EQ(report.planned, 12U);
  EXPECT_EQ(report.exported, 4U) << "what is left of the modern controller";
  EXPECT_EQ(Failures().size(), 8U);
  EXPECT_EQ(Failures()[2], "TWO/TSC1 WDC: T640");
  EXPECT_EQ(Failures().back(), "TWO/PLT7 OVC: T422");
  EXPECT_TRUE(prompts.shown.empty()) << "nobody has to press a button for the walk to go on";
  EXPECT_EQ(files.files[kWdc], std::string(kWeekdayHeader) + kFinished);
  EXPECT_FALSE(report.Succeeded());
  bool logged = false;
  for (const std::string& line : proc.log.Lines()) logged |= line == Failures().back();
  EXPECT_TRUE(logged);
}

TEST_F(BatchExportTest, WhatWasSaidBeforeAWholeCatalogueIsNoFailureButLeftOutLinesAre) {
  socket.onSent = [this, first = true](std::string_view command) mutable {
    if (command == "LIST WDC\r") {
      Reply(std::exchange(first, false) ? "ERROR 5\r\n" : answers["LIST WDC"], 50);
    } else {
      Reply("EXIT\r\n", 50);
    }
  };
  EXPECT_EQ(Run({true, false, false}).exported, 4U) << "the second attempt was answered";
  EXPECT_EQ(Failures(), Shown{});

  for (int line = 0; line < 200; ++line)
    answers["LIST WDC"].insert(0, " 999 !X          !MO!07:00!1!.\r\n");
  EXPECT_EQ(Run({true, false, false}).exported, 2U);
  EXPECT_EQ(Failures(), (Shown{"ONE/AHU1 WDC: T543", "ONE/VS1 WDC: T543"}));
}

TEST_F(BatchExportTest, RefusedLinesAreToldAndTheRestIsWritten) {
  answers["LIST WDC"] =
      " 1000 !AHU1        !MO..FR       !07:00..16:30             !21        !17         \r\n"
      " 1001 !VS1         !XX           !08:00                    !1         !.          \r\n"
      "EXIT\r\n";
  const BatchReport& report = Run({true, false, false});
  EXPECT_EQ(report.exported, 3U);
  ASSERT_EQ(report.failures.size(), 1U);
  EXPECT_EQ(report.failures[0].Line().substr(0, 18), "ONE/VS1 WDC: T269 ");
  EXPECT_NE(files.files[kWdc].find("Heating ;Start;07:00"), std::string::npos);
}

TEST_F(BatchExportTest, ADiskThatIsFullForAWhileCostsTheNodesOfThatTime) {
  batch.Selected = [this](std::size_t node) {
    Answer(node);
    files.failWrites.reset();
    if (proc.tree[node].TscName == "VS1") files.failWrites = FileError::Reason::Full;
  };
  const BatchReport& report = Run({true, false, false});
  EXPECT_EQ(report.exported, 3U);
  ASSERT_EQ(report.failures.size(), 1U);
  EXPECT_EQ(report.failures[0].node, "ONE/VS1");
  EXPECT_EQ(report.failures[0].why.substr(0, 4), "T501");
  EXPECT_EQ(files.files[kWdc].find("DUC 1 ;"), std::string::npos);
}

TEST_F(BatchExportTest, AFolderThatCannotBeWrittenFailsEveryNodeWithoutFetching) {
  files.failWrites = FileError::Reason::ReadOnly;
  const BatchReport& report = Run();
  EXPECT_EQ(report.exported, 0U);
  EXPECT_EQ(report.Failures(proc.texts).size(), 1U) << "said once, not for each file and node";
  EXPECT_TRUE(report.files.empty());
  EXPECT_TRUE(commands.empty());
}

TEST_F(BatchExportTest, CancelEndsAFetchThatWaitsForADeadController) {
  socket.silent = true;
  proc.batch.Kinds = {};
  turn.After(500, [this] { batch.Cancel(); });
  turn.After(700, [this] { batch.Tick(); });  // the timer goes on ticking inside the wait
  batch.Start();
  while (batch.Tick()) {
  }
  EXPECT_LT(turn.Now(), 1000);
  EXPECT_TRUE(batch.Report().stopped);
  EXPECT_TRUE(batch.Report().failures.empty()) << "what was cancelled did not fail";
  EXPECT_EQ(files.files[kWdc], std::string(kWeekdayHeader) + kStopped);
  EXPECT_EQ(files.files[kSdc], std::string(kCalendarHeader) + kStopped);
  EXPECT_FALSE(proc.waits.Stopped());
  EXPECT_FALSE(proc.batch.BatchBusy);
  socket.silent = false;
  EXPECT_TRUE(Run({true, false, false}).Succeeded()) << "the next batch works";
}

TEST_F(BatchExportTest, AnAbandonedBatchKeepsWhatItHas) {
  {
    BatchExport abandoned(proc);
    abandoned.Selected = batch.Selected;
    proc.batch.Kinds = {true, false, false};
    abandoned.Start();
    while (proc.batch.Step < 2) abandoned.Tick();
  }
  EXPECT_FALSE(proc.batch.IsRunning());
  EXPECT_EQ(files.files[kWdc],
            std::string(kWeekdayHeader) + std::string(kWeekdayRecords) + kStopped);
}

TEST_F(BatchExportTest, APlantWithoutTimeControlsIsNoSuccess) {
  proc.tree.clear();
  EXPECT_FALSE(Run().Succeeded());
  EXPECT_EQ(batch.Report().Headline(proc.texts), "T633");
  EXPECT_EQ(files.files[kOvc], std::string(kExceptionHeader) + kFinished);
}

TEST_F(BatchExportTest, TheReportOfAnUnwatchedRunIsStoredBesideTheFiles) {
  proc.texts.Read("422=T422\r\n631=%1 of %2, %3\r\n634=Files:\r\n");
  proc.batch.Notes = {"a setting"};
  answers.erase("LIST TSC1");
  Run({true, false, false});
  batch.StoreReport();
  EXPECT_EQ(files.files[kFolder + "BATCH" + kStamp + ".TXT"],
            "a setting\r\n3 of 4, 1\r\nTWO/TSC1 WDC: T422\r\nFiles:\r\n  " + kWdc + "\r\n");
}

TEST_F(BatchExportTest, AReportThatCannotBeStoredIsShown) {
  answers.erase("LIST TSC1");
  Run({true, false, false});
  files.failWrites = FileError::Reason::Full;
  batch.StoreReport();
  ASSERT_GE(prompts.shown.size(), 2U);
  EXPECT_EQ(prompts.shown[0], "x T501");
  EXPECT_EQ(prompts.shown[1], "n TWO/TSC1 WDC: T422");
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

TEST_F(BatchExportTest, WhatIsCompleteWhenItIsCancelledIsWrittenBehindThat) {
  ReplaceInSettings("DelayD=1", "DelayD=9");  // seconds after the listing
  answers["\x05"] = "ZEK READY\r\n";
  turn.After(5000, [this] { batch.Cancel(); });
  Run({true, false, false});
  EXPECT_TRUE(batch.Report().stopped);
  EXPECT_EQ(files.files[kWdc].find(kStopped), kWeekdayHeader.size());
  EXPECT_GT(files.files[kWdc].size(), kWeekdayHeader.size() + kStopped.size());
}

TEST_F(BatchExportTest, AFileThatIsLostInTheEndTakesItsNodesWithIt) {
  proc.texts.Read("631=%1 of %2, %3 are not\r\n638=faulty\r\n");
  batch.Selected = [this](std::size_t node) {
    Answer(node);
    if (proc.batch.State == BatchState::OvcPass) files.failWrites = FileError::Reason::Full;
  };
  EXPECT_EQ(Run({true, false, false}).Headline(proc.texts), "0 of 4, 4 are not");
  EXPECT_TRUE(batch.Report().files.empty());
  files.failWrites.reset();
  batch.Selected = [this](std::size_t node) { Answer(node); };
  proc.batch.PlantCut = true;
  EXPECT_EQ(Run({true, false, false}).Headline(proc.texts), "faulty");
  EXPECT_FALSE(proc.batch.Succeeded);
}

TEST_F(BatchExportTest, AProgramThatEndsStopsIt) {
  batch.Selected = [this](std::size_t node) {
    Answer(node);
    if (proc.tree[node].TscName == "VS1") turn.Quit();
  };
  EXPECT_TRUE(Run().stopped);
  EXPECT_NE(files.files[kWdc].find(kStopped), std::string::npos);
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
