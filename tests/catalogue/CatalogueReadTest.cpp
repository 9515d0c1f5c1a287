#include <gtest/gtest.h>

#include "support/TransferSession.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;
const std::string kCopyOne = "/zek/f127_0_0_1_5100 First WDC.TXT";
const std::string kCopyTwo = "/zek/f127_0_0_1_5100_3 Second TSC1.TXT";

class CatalogueReadTest : public ::testing::Test, protected test::TransferSession {
 protected:
  // After every transfer, whatever became of it.
  void ExpectAtRest() {
    EXPECT_EQ(proc.transfer.Kind, TransferKind::Idle);
    EXPECT_EQ(proc.connection.CurrentTopic, -1);
    EXPECT_EQ(proc.status.Busy, 0);
    EXPECT_EQ(proc.status.Transfer, "");
    EXPECT_EQ(proc.status.Waiting, "");
  }
};

TEST_F(CatalogueReadTest, FetchesAndKeepsACopy) {
  SelectOne();
  answers["\x05"] = "ZEK READY\r\n";
  answers["LIST WDC"] = "HEADER\r\n 1000 !AHU1!MO\r\n 1001 !AHU1!TU\r\nEXIT\r\n";
  EXPECT_TRUE(Get());
  EXPECT_EQ(commands, (Shown{"\x05", "LIST WDC"}));
  EXPECT_EQ(files.files[kCopyOne], " 1000 !AHU1!MO\r\n 1001 !AHU1!TU\r\n");
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_NEAR(static_cast<double>(turn.Now()), 3200, 300) << "three pauses; none behind the EXIT";
  ExpectAtRest();
}

TEST_F(CatalogueReadTest, ShowsHowManyLinesHaveCome) {
  proc.texts.Read("534=%1 lines");
  SelectOne();
  std::string shown;
  proc.status.Changed = [&] {
    if (!shown.ends_with(proc.status.Waiting + ";")) shown += proc.status.Waiting + ";";
  };
  socket.onSent = [this](std::string_view command) {
    if (command != "LIST WDC\r") return Reply("OK\r\n", 10);
    Reply("HEADER\r\n", 10);  // and a pause before the first line
    Reply(" 1000 !x\r\n", 300);
    Reply(" 1001 !x\r\n", 600);
    Reply("EXIT\r\n", 1200);
  };
  EXPECT_TRUE(Get());
  EXPECT_NE(shown.find("1 lines;2 lines;"), std::string::npos) << shown;
}

TEST_F(CatalogueReadTest, NamedControlsHaveTheirValueAndExceptions) {
  SelectTwo();
  answers["LIST TSC1"] =
      "HEAD\r\n 1000 !x\r\nTSC1.DFV= 21.5 !c\r\nTSC1.EXC\r\n1 24-DEC!y\r\nEXIT\r\n";
  EXPECT_TRUE(Get());
  EXPECT_EQ(files.files[kCopyTwo], ".DFV = 21.5\r\n 1000 !x\r\n");
  answers["LIST TSC1.EXC"] = "1 24-DEC!y\r\nEXIT\r\n";
  EXPECT_TRUE(Get(Catalogue::Ovc));
  EXPECT_EQ(files.files["/zek/f127_0_0_1_5100_3 Second TSC1 EXC.TXT"],
            ".DFV = .\r\n1 24-DEC!y\r\n");
  answers["LIST SDC"] = "EXIT\r\n";
  EXPECT_TRUE(Get(Catalogue::Sdc));
  EXPECT_EQ(files.files["/zek/f127_0_0_1_5100_3 Second SDC.TXT"], "");
}

TEST(CatalogueRead, WhatIsNoWholeListingLeavesTheOldCopy) {
  struct {
    const char* name;
    const char* reply;
    std::size_t messages;
  } const cases[] = {
      {"silence", "", 1},
      {"no EXIT", " 1000 !x\r\n", 1},
      {"error in the first line", "ERROR 5\r\n", 4},  // text 400 for each attempt
      {"error and EXIT at once", "ERROR 5\r\nEXIT\r\n", 1},
      {"late error", " 1000 !x\r\n?ERROR\r\nEXIT\r\n", 1},
      {"half a line", " 1000 !x\r\nEXIT", 1},
  };
  for (const auto& each : cases) {
    test::TransferSession session;
    session.SelectOne();
    session.files.files[kCopyOne] = "old";
    session.prompts.answers = {false};  // do not use the local copy
    session.answers["LIST WDC"] = each.reply;
    EXPECT_FALSE(session.Get()) << each.name;
    EXPECT_EQ(session.files.files[kCopyOne], "old") << each.name;
    EXPECT_EQ(session.commands.size(), 6U) << each.name << ": three attempts";
    EXPECT_EQ(session.socket.opened.size(), 3U) << each.name;
    EXPECT_EQ(session.prompts.shown.size(), each.messages + 1) << each.name;
    EXPECT_EQ(session.prompts.shown.back(), "x T422") << each.name;
    EXPECT_EQ(session.proc.transfer.Kind, TransferKind::Idle) << each.name;
  }
}

TEST_F(CatalogueReadTest, TheTimeOutIsOneOfSilence) {
  SelectOne();
  socket.onSent = [this](std::string_view bytes) {
    if (bytes != "LIST WDC\r") return;
    for (int i = 1; i <= 4; ++i) Reply(" " + std::to_string(1000 + i) + " !x\r\n", 4000 * i);
    Reply("EXIT\r\n", 20'000);
  };
  EXPECT_TRUE(Get());
  EXPECT_EQ(GotLines().size(), 4U);
}

TEST_F(CatalogueReadTest, ALostLinkIsAFailedAttemptAndTheNextSucceeds) {
  proc.texts.Read("421=Fetching\r\n536=%1 of 3\r\n");
  SelectOne();
  int lists = 0;
  Shown told;
  socket.onSent = [&](std::string_view bytes) {
    if (bytes != "LIST WDC\r") return;
    told.push_back(proc.status.Transfer);
    Reply(" 1000 !x\r\n", 10);
    if (++lists == 1) {
      socket.HangUp(50);
    } else {
      Reply("EXIT\r\n", 50);
    }
  };
  EXPECT_TRUE(Get());
  EXPECT_EQ(told, (Shown{"Fetching..", "Fetching (2 of 3).."}));
  EXPECT_EQ(files.files[kCopyOne], " 1000 !x\r\n");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(CatalogueReadTest, WithoutConnectionThereIsNoSecondMessage) {
  SelectOne();
  socket.reachable = false;
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown, (Shown{"c T517", "c T512 Topic 'ONE'"}));
  ExpectAtRest();
}

TEST_F(CatalogueReadTest, AnswersOfTheStepBeforeAreNotTaken) {
  SelectOne();
  answers["\x05"] = "1 !stray\r\nEXIT\r\n.DFV=9\r\n";
  answers["LIST WDC"] = "1000 !x\r\nEXIT\r\n";
  EXPECT_TRUE(Get());
  EXPECT_EQ(GotLines(), Shown{"1000 !x"});
  EXPECT_EQ(GotDfv(), ".");
}

TEST_F(CatalogueReadTest, CancelEndsItQuietlyAtAnyMoment) {
  for (const int moment : {5, 500, 1500, 2500, 6000}) {
    SelectOne();
    files.files.erase(kCopyOne);
    const auto start = turn.Now();
    turn.After(moment, [this] { proc.waits.Cancel(); });
    EXPECT_FALSE(Get()) << moment;
    EXPECT_LE(turn.Now() - start, moment + 300);
    EXPECT_TRUE(prompts.shown.empty()) << moment;
    EXPECT_FALSE(proc.waits.Stopped());
    ExpectAtRest();
  }
}

TEST_F(CatalogueReadTest, LinesThatDoNotFitAreTold) {
  SelectOne();
  for (int i = 1; i <= 203; ++i) answers["LIST WDC"] += std::to_string(i) + " !x\r\n";
  answers["LIST WDC"] += "EXIT\r\n";
  EXPECT_TRUE(Get());
  EXPECT_EQ(GotLines().size(), 201U);
  EXPECT_EQ(prompts.shown, Shown{"x T543"});
  EXPECT_EQ(LinesDropped(), 2);
  proc.settings.AlwaysUseLocal = true;
  EXPECT_TRUE(Get());
  EXPECT_EQ(LinesDropped(), 0) << "the copy is whole";
}

TEST_F(CatalogueReadTest, ChoosesTheSource) {
  SelectOne();
  files.files[kCopyOne] = " 7 !local\r\n.DFV = 3\r\n 8 !more";
  prompts.answers = {true};
  EXPECT_TRUE(Get());
  EXPECT_EQ(GotLines(), (Shown{" 7 !local", " 8 !more"}));
  EXPECT_EQ(GotDfv(), ".") << "a shared catalogue has no value";
  EXPECT_EQ(prompts.shown, Shown{"q? T416 (F127_0_0_1_5100 FIRST WDC.TXT)."});
  EXPECT_TRUE(socket.opened.empty());

  proc.settings.AlwaysUseLocal = true;
  EXPECT_TRUE(Get());
  EXPECT_EQ(prompts.shown.size(), 1U) << "no question";

  proc.settings.LocalMode = true;
  proc.settings.AlwaysUseDSS = true;
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown.back(), "i T420");
  files.files.erase(kCopyOne);
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown.back(), "i T418\r\n\r\nT419");
}

TEST_F(CatalogueReadTest, BadCopiesAreToldByName) {
  SelectOne();
  proc.settings.AlwaysUseLocal = true;
  for (int i = 0; i < 202; ++i) files.files[kCopyOne] += "1 !x\n";
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown, Shown{"x T540"});
  files.failReads = FileError::Reason::Denied;
  EXPECT_FALSE(LoadCopy(Catalogue::Wdc));
  EXPECT_TRUE(GotLines().empty());
}

TEST_F(CatalogueReadTest, ADelayTooLongForACountdownIsToldBeforeAnything) {
  SelectOne();
  profile.WriteIni("GetDelay", "DelayB", "6554");
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown, Shown{"x T500"});
  EXPECT_TRUE(socket.opened.empty());
}

TEST_F(CatalogueReadTest, ARootOfNamedControlsHasNoWeekdayCatalogue) {
  Select("TWO");
  EXPECT_FALSE(Get());
  EXPECT_EQ(prompts.shown, Shown{"i T541"});
}

}  // namespace
}  // namespace zek
