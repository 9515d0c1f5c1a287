#include <gtest/gtest.h>
#include <map>

#include "formats/ExceptionDrops.h"
#include "support/TransferSession.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;

constexpr const char* kOne =
    " 1000 !AHU1        !MO           !07:00                    !1        !0";
constexpr const char* kTwo =
    " 1001 !AHU1        !TU           !07:00                    !1        !0";
constexpr const char* kOther =
    " 1100 !AHU2        !MO           !07:00                    !5        !0";
const std::string kCopy = "/zek/f127_0_0_1_5100 First WDC.TXT";

/// A ZEK1 that keeps lines by their number, as far as its faults let it.
class SendTest : public ::testing::Test, protected test::TransferSession {
 protected:
  SendTest() {
    proc.settings.VerifyAfterWrite = true;
    proc.settings.AlwaysUseDSS = true;
    for (const char* line : {kOne, kTwo, kOther}) stored[LineNumber(line)] = line;
    socket.onSent = [this](std::string_view bytes) { Take(bytes.substr(0, bytes.size() - 1)); };
    SelectOne();
  }

  static int LineNumber(std::string_view line) { return std::stoi(std::string(line.substr(0, 5))); }

  void Take(std::string_view command) {
    sent.emplace_back(command);
    const bool number = command.size() > 5 && command[0] == ' ';
    if (number && command != swallowed) stored[LineNumber(command)] = command;
    if (command != "LIST WDC") return;
    std::string listing = "WDC\r\n";
    for (const auto& [place, line] : stored) listing += line + "\r\n";
    onList();
    if (answersList) Reply(listing + "EXIT\r\n", 50);
  }

  bool Send(const Shown& lines) {
    prompts.answers.push_back(true);
    return Save(lines);
  }

  std::map<int, std::string> stored;
  std::string swallowed;
  bool answersList = true;
  std::function<void()> onList = [] {};
  Shown sent;
};

constexpr const char* kChanged =
    " 1000 !AHU1        !MO           !07:00                    !2        !0";

TEST_F(SendTest, TheQuestionTellsWhatChangesAndTheWriteIsVerified) {
  ASSERT_TRUE(Get());
  EXPECT_TRUE(Send({kChanged, kTwo}));
  ASSERT_EQ(prompts.shown.size(), 2U);
  EXPECT_NE(prompts.shown[0].find("T700\r\nT704: 1, T709: 1"), std::string::npos)
      << prompts.shown[0];
  EXPECT_EQ(
      prompts.details[0],
      "T704 (1)\r\n  T711  MO        07:00         1  0\r\n  T712  MO        07:00         2  0\r\n"
      "\r\nT709 (1)\r\nT710\r\n  AHU2    MO        07:00         5  0\r\n");
  EXPECT_EQ(prompts.shown[1], "i T721");
  EXPECT_EQ(files.files[kCopy], std::string(kChanged) + "\r\n" + kTwo + "\r\n") << "left alone";
  EXPECT_EQ(proc.transfer.Kind, TransferKind::Idle);
  EXPECT_FALSE(Verifying());
  EXPECT_EQ(proc.status.Busy, 0);
  EXPECT_EQ(proc.connection.CurrentTopic, -1);
}

TEST_F(SendTest, WithoutChangesItSaysSoAndWithoutAReadAllIsShown) {
  stored.erase(1100);
  ASSERT_TRUE(Get());
  EXPECT_TRUE(Send({kOne, kTwo}));
  EXPECT_NE(prompts.shown[0].find("T703"), std::string::npos);
  EXPECT_TRUE(prompts.details.empty());
  ReadAnotherBefore();
  EXPECT_FALSE(Send({kOne})) << "the other line stays";
  EXPECT_NE(prompts.shown[2].find("T702\r\nT705: 1"), std::string::npos) << prompts.shown[2];
}

TEST_F(SendTest, ALocalCopyIsComparedToAsSuchAndNoLeavesTheBaseline) {
  files.files[kCopy] = std::string(kOne) + "\r\n";
  proc.settings.AlwaysUseDSS = false;
  proc.settings.AlwaysUseLocal = true;
  ASSERT_TRUE(Get());
  EXPECT_FALSE(Save({kChanged}));
  EXPECT_NE(prompts.shown[0].find("T701\r\nT704: 1"), std::string::npos) << prompts.shown[0];
  EXPECT_FALSE(Save({kChanged}));
  EXPECT_EQ(prompts.shown[1], prompts.shown[0]);
  EXPECT_TRUE(sent.empty());
}

TEST_F(SendTest, WhatTheControllerDidNotTakeIsTold) {
  constexpr const char* third =
      " 1002 !AHU1        !WE           !07:00                    !1        !0";
  swallowed = third;
  EXPECT_FALSE(Send({kOne, kTwo, third}));
  EXPECT_EQ(prompts.shown.back(), "x T723\r\nT725: 1");
  EXPECT_EQ(prompts.details.back(), "T725 (1)\r\n  WE        07:00         1  0\r\n");
  // The next try compares with what the controller has now.
  swallowed.clear();
  EXPECT_TRUE(Send({kOne, kTwo, third}));
  EXPECT_NE(prompts.details.back().find("T705 (1)\r\n  WE "), std::string::npos)
      << prompts.details.back();
}

TEST_F(SendTest, AChangedValueAndALineThatStaysAreTold) {
  swallowed = kOne;
  stored[1000] = kChanged;
  EXPECT_FALSE(Send({kOne}));
  EXPECT_EQ(prompts.shown.back(), "x T723\r\nT724: 1, T726: 1");
  EXPECT_EQ(
      prompts.details.back(),
      "T724 (1)\r\n  T727  MO        07:00         1  0\r\n  T728  MO        07:00         2  0\r\n"
      "\r\nT726 (1)\r\n  TU        07:00         1  0\r\n");
}

TEST_F(SendTest, WhatCannotBeFetchedAgainIsNotVerified) {
  constexpr const char* kEnd = "the end of the program";
  const std::vector<std::pair<const char*, std::function<void()>>> faults = {
      {"silence", [this] { answersList = false; }},
      {"hangs up", [this] { socket.HangUp(); }},
      {"unreachable", [this] { socket.HangUp(), socket.reachable = false; }},
      {"cancelled",
       [this] {
         EXPECT_TRUE(Verifying());
         answersList = false;
         proc.waits.Cancel();
       }},
      {kEnd,
       [this] {
         answersList = false;
         turn.Quit();
       }},
  };
  for (const auto& [name, fault] : faults) {
    answersList = true;
    socket.reachable = true;
    onList = [] {};
    ASSERT_TRUE(Get()) << name;
    onList = fault;
    const bool stopped = std::string_view(name) == "cancelled" || std::string_view(name) == kEnd;
    EXPECT_FALSE(Send({kChanged, kTwo})) << name;
    EXPECT_EQ(prompts.shown.back(), stopped ? "x T732" : "x T722") << name;
    EXPECT_EQ(ReadBefore().from, LinesFrom::Nowhere) << name;
    EXPECT_EQ(proc.transfer.Kind, TransferKind::Idle) << name;
    EXPECT_FALSE(Verifying()) << name;
    EXPECT_EQ(proc.waits.Stopped(), turn.Quitting()) << name;
    EXPECT_EQ(proc.connection.CurrentTopic, -1) << name;
    EXPECT_EQ(proc.status.Busy, 0) << name;
  }
}

TEST_F(SendTest, WithoutTheSettingNothingIsFetched) {
  proc.settings.VerifyAfterWrite = false;
  swallowed = kOne;
  EXPECT_TRUE(Send({kOne}));
  EXPECT_EQ(prompts.shown.back(), "i T430");
  EXPECT_EQ(sent.back(), "EXIT");
  EXPECT_EQ(ReadBefore().lines, Shown{kOne});
}

TEST_F(SendTest, TheLocalCopyOfAFileThatIsPutIsTheBaseline) {
  ReadLocalCopyBefore();
  EXPECT_EQ(ReadBefore().from, LinesFrom::Nowhere);
  files.files[kCopy] = std::string(kTwo) + "\r\n";
  ReadLocalCopyBefore();
  EXPECT_EQ(ReadBefore().lines, Shown{kTwo});
  EXPECT_EQ(ReadBefore(Catalogue::Sdc).from, LinesFrom::Nowhere);
}

TEST_F(SendTest, StopTimesThatNoLineHoldsAreTold) {
  ExceptionTable table;
  table.rows[0] = {true, DateMoment(2026, 12, 24) + 480, 1020};
  table.rows[1] = {true, DateMoment(2026, 12, 25) + 480, DateMoment(2026, 12, 26)};
  table.rows[2] = {true, DateMoment(2026, 12, 26) + 480, 0};
  EXPECT_TRUE(LostStopTimes(table, Generation::Zek2).empty());
  prompts.answers.push_back(true);
  SaveWithout(LostStopTimes(table, Generation::Zek1), {});
  EXPECT_EQ(prompts.details[0], "T708 (1)\r\n  24-DEC-26,08:00..17:00  (T716)\r\n");
  prompts.details.clear();
  prompts.answers.push_back(true);
  SaveWithout({std::string(201, 'x'), "\x05" + std::string(199, 'y')}, {});
  const std::string told =
      "T706 (1)\r\n  MO..TU    07:00         1  0  (T707)\r\n\r\nT708 (2)\r\n  " +
      std::string(200, 'x') + "...  (T716)\r\n  <5>" + std::string(199, 'y') + "  (T716)\r\n";
  EXPECT_TRUE(prompts.details[0].starts_with(told)) << prompts.details[0];
}

}  // namespace
}  // namespace zek
