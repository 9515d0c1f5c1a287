#include <gtest/gtest.h>

#include "support/TransferSession.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;
const std::string kCopyOne = "/zek/f127_0_0_1_5100 First WDC.TXT";

const Shown kLines = {" 1000 !AHU1!MO", " 1001 !AHU1!TU"};

class CatalogueWriteTest : public ::testing::Test, protected test::TransferSession {
 protected:
  CatalogueWriteTest() { prompts.answers = {true}; }
};

TEST_F(CatalogueWriteTest, SendsEveryStepAndTellsOfIt) {
  SelectOne();
  EXPECT_TRUE(Save(kLines));
  EXPECT_EQ(commands, (Shown{"EXIT", "EXIT", ".WDC", " 1000 !AHU1!MO", " 1001 !AHU1!TU", "EXIT"}));
  EXPECT_EQ(files.files[kCopyOne], " 1000 !AHU1!MO\r\n 1001 !AHU1!TU\r\n");
  EXPECT_EQ(prompts.shown,
            (Shown{"q? T426\r\n\r\nT427 'f127_0_0_1_5100 First WDC.TXT'\r\n\r\nT702\r\nT705: 2",
                   "i T430"}));
  EXPECT_EQ(proc.connection.CurrentTopic, -1);
  EXPECT_EQ(proc.status.Busy, 0);
}

TEST_F(CatalogueWriteTest, NamedControlsSendTheirValue) {
  SelectTwo();
  EXPECT_TRUE(Save(kLines, Catalogue::Wdc, "21"));
  EXPECT_EQ(commands, (Shown{"DUS:3", "EXIT", "EXIT", "TSC1.WDC", " 1000 !AHU1!MO",
                             " 1001 !AHU1!TU", "TSC1.DFV=21", "EXIT"}));
  EXPECT_EQ(files.files["/zek/f127_0_0_1_5100_3 Second TSC1.TXT"],
            ".DFV = 21\r\n 1000 !AHU1!MO\r\n 1001 !AHU1!TU\r\n");
}

TEST_F(CatalogueWriteTest, AValueThatACopyDoesNotTellIsLeftAlone) {
  SelectTwo();
  files.files["/zek/f127_0_0_1_5100_3 Second TSC1 EXC.TXT"] = "1 24-DEC!x\r\n";
  EXPECT_TRUE(LoadCopy(Catalogue::Ovc));
  EXPECT_EQ(GotDfv(), ".");
  EXPECT_TRUE(SaveWhatWasGot(Catalogue::Ovc));
  EXPECT_EQ(commands, (Shown{"DUS:3", "EXIT", "EXIT", "TSC1.EXC", "1 24-DEC!x", "EXIT"}));
  EXPECT_EQ(files.files["/zek/f127_0_0_1_5100_3 Second TSC1 EXC.TXT"], "1 24-DEC!x\r\n");
}

TEST_F(CatalogueWriteTest, NoSendsNothingAndLocalModeAsksNothing) {
  SelectOne();
  prompts.answers = {false};
  EXPECT_FALSE(Save(kLines));
  EXPECT_TRUE(socket.opened.empty());
  EXPECT_TRUE(files.files.contains(kCopyOne));
  proc.settings.LocalMode = true;
  EXPECT_TRUE(Save(kLines));
  EXPECT_EQ(prompts.shown.back(), "i T424\r\n\r\nT425 'f127_0_0_1_5100 First WDC.TXT'");
  EXPECT_TRUE(socket.opened.empty());
}

TEST_F(CatalogueWriteTest, ACopyThatCannotBeStoredStopsItAll) {
  SelectOne();
  files.failWrites = FileError::Reason::Full;
  EXPECT_FALSE(Save(kLines));
  EXPECT_EQ(prompts.shown, Shown{"x T501"});
  EXPECT_TRUE(socket.opened.empty());
}

TEST(CatalogueWrite, AProgramThatEndsBeforeTheLastCommandHasNotSent) {
  for (int milliseconds = 100; milliseconds < 7000; milliseconds += 500) {
    test::TransferSession session;
    session.prompts.answers = {true};
    session.SelectOne();
    session.turn.After(milliseconds, [&] { session.turn.Quit(); });
    const bool sent = session.Save({" 1000 !AHU1!MO"});
    EXPECT_TRUE(!sent || session.commands.size() == 5U) << milliseconds;
  }
}

// What the controller does at a command, and whether the write then may call itself sent.
struct FaultCase {
  const char* name;
  const char* at;  // the command
  std::function<void(test::TransferSession&)> fault;
  bool onlyOnce;  // the second attempt goes well
};

TEST(CatalogueWrite, IsSentOnlyWhenEveryStepHeld) {
  const auto refuse = [](test::TransferSession& s) { s.Reply("\x02\r\n", 10); };
  const auto error = [](test::TransferSession& s) { s.Reply("?ERROR\r\n", 900); };
  const auto hangUp = [](test::TransferSession& s) { s.socket.HangUp(); };
  const auto dropBytes = [](test::TransferSession& s) { s.socket.takesBytes = false; };
  std::vector<FaultCase> cases;
  for (const char* at : {"EXIT", ".WDC", " 1000 !AHU1!MO", " 1001 !AHU1!TU"}) {
    cases.push_back({"hangs up once", at, hangUp, true});
    cases.push_back({"hangs up always", at, hangUp, false});
    cases.push_back({"stops taking bytes", at, dropBytes, false});
    if (std::string_view(at) == "EXIT") continue;  // an error before the selector is no refusal
    cases.push_back({"refuses once", at, refuse, true});
    cases.push_back({"refuses always", at, refuse, false});
    cases.push_back({"late error once", at, error, true});
    cases.push_back({"late error always", at, error, false});
  }
  for (const FaultCase& each : cases) {
    test::TransferSession session;
    session.SelectOne();
    session.prompts.answers = {true};
    int faults = 0;
    std::vector<std::string> sent;
    session.socket.onSent = [&](std::string_view bytes) {
      sent.emplace_back(bytes.substr(0, bytes.size() - 1));
      if (sent.back() != each.at || (each.onlyOnce && faults > 0)) return;
      ++faults;
      each.fault(session);
    };
    EXPECT_EQ(session.Save(kLines), each.onlyOnce) << each.name << " at " << each.at;
    EXPECT_EQ(session.prompts.shown.back(), each.onlyOnce ? "i T430" : "x T429")
        << each.name << " at " << each.at;
    EXPECT_EQ(session.socket.opened.size(), each.onlyOnce ? 2U : 3U)
        << each.name << " at " << each.at;
    EXPECT_EQ(session.proc.connection.CurrentTopic, -1);
    EXPECT_EQ(session.proc.transfer.Kind, TransferKind::Idle);
    if (each.onlyOnce) {
      const Shown whole{"EXIT", "EXIT", ".WDC", " 1000 !AHU1!MO", " 1001 !AHU1!TU", "EXIT"};
      ASSERT_GE(sent.size(), whole.size());
      EXPECT_EQ(Shown(sent.end() - 6, sent.end()), whole) << each.name << " at " << each.at;
    }
  }
}

TEST_F(CatalogueWriteTest, AnEmptyCatalogueIsSentToo) {
  SelectOne();
  EXPECT_TRUE(Save({}, Catalogue::Sdc));
  EXPECT_EQ(commands, (Shown{"EXIT", "EXIT", ".SDC", "EXIT"}));
}

}  // namespace
}  // namespace zek
