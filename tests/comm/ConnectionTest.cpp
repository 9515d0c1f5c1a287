#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>

#include "comm/Connection.h"
#include "comm/ReplyReader.h"
#include "comm/SystemTransports.h"
#include "support/TestSession.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;
constexpr std::int16_t kOne = 0;    // TCP/IP, no DUS
constexpr std::int16_t kTwo = 1;    // TCP/IP, DUS 3
constexpr std::int16_t kLocal = 2;  // DDE
constexpr std::int16_t kNet = 3;    // network DDE

class ConnectionTest : public ::testing::Test, protected test::TestSession {
 protected:
  ConnectionTest() {
    socket.onConnected = [this] { socket.Say("<TRANSPARENT>"); };
  }

  std::string TopicName(std::int16_t topic) const {
    return proc.topics[topic].Description + " (" + proc.topics[topic].TopicName + ")";
  }

  Connection& connection = proc.connection;
};

TEST_F(ConnectionTest, TransparentServerBringsTheLinkUp) {
  connection.Connect(kOne);
  EXPECT_EQ(connection.CurrentTopic, kOne);
  EXPECT_EQ(socket.opened.back().server, "127.0.0.1");
  EXPECT_EQ(socket.opened.back().service, "5100");
  EXPECT_EQ(socket.sent, "");
  EXPECT_EQ(proc.status.Connection, "First (ONE)");
  EXPECT_EQ(proc.countdowns.IdleCountdown, 300);
  std::string shown;
  proc.status.Changed = [&] { shown = proc.status.Sequence; };
  socket.SayNow("0007>text\xFF");
  EXPECT_EQ(shown, "0007");
  connection.Connect(kOne);
  EXPECT_EQ(socket.opened.size(), 1U) << "the connected topic is not opened again";
}

TEST_F(ConnectionTest, DusIsSentOnceTheSocketIsConnected) {
  socket.onConnected = [] {};
  socket.openMilliseconds = 3000;
  connection.Connect(kTwo);
  EXPECT_EQ(connection.CurrentTopic, kTwo);
  EXPECT_EQ(socket.sent, "DUS:3\r");
}

TEST_F(ConnectionTest, PausesAfterConnectingWithADusNumber) {
  profile.WriteIni("TCPIP", "DelayAfterConnect", "4");
  for (const auto& [number, pause] : {std::pair("3", 4000), {"1", 4000}, {"0", 0}}) {
    proc.topics[kTwo].Address = "127.0.0.1:5100:" + std::string(number);
    const auto start = turn.Now();
    connection.Connect(kTwo);
    EXPECT_NEAR(static_cast<double>(turn.Now() - start), pause, 300) << number;
    EXPECT_EQ(connection.CurrentTopic, kTwo) << number;
    connection.Disconnect();
  }
}

TEST_F(ConnectionTest, TextThatIsDroppedIsLoggedOnceAConnection) {
  for (int connections = 1; connections <= 2; ++connections) {
    connection.Connect(kOne);
    for (int texts = 0; texts < 2; ++texts) {
      socket.SayNow(std::string(3 * kLongestReply, 'x'));
      socket.SayNow("\xFF");
    }
    EXPECT_EQ(std::ranges::count(proc.log.Lines(), proc.texts.Text(text::kTextDropped)),
              connections);
    connection.Disconnect();
  }
}

TEST_F(ConnectionTest, DisconnectClosesAndAwaitsASocketThatIsUp) {
  proc.settings.DisconnectDelay = 3;
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  const auto disconnect = [this](std::int16_t topic, int closeMilliseconds) {
    socket.closeMilliseconds = dde.closeMilliseconds = closeMilliseconds;
    connection.Connect(topic);
    const auto start = turn.Now();
    EXPECT_TRUE(connection.Disconnect());
    EXPECT_EQ(connection.CurrentTopic, -1);
    return static_cast<double>(turn.Now() - start);
  };
  EXPECT_EQ(disconnect(kOne, 0), 0);
  EXPECT_EQ(socket.State(), LinkState::Closed);
  EXPECT_NEAR(disconnect(kOne, 500), 500, 50);
  EXPECT_EQ(socket.State(), LinkState::Closed);
  EXPECT_NEAR(disconnect(kOne, -1), 3000, 250) << "no longer than the setting says";
  EXPECT_EQ(disconnect(kLocal, -1), 0);
  EXPECT_EQ(dde.State(), LinkState::Closing);
}

TEST_F(ConnectionTest, AllIsSentOnceThePeerHasConfirmedIt) {
  profile.WriteIni("TCPIP", "SendTimeOut", "2");
  connection.Connect(kOne);
  socket.confirmMilliseconds = 500;
  socket.Send("x");
  auto start = turn.Now();
  EXPECT_TRUE(connection.AwaitAllSent());
  EXPECT_NEAR(static_cast<double>(turn.Now() - start), 500, 50);
  socket.acknowledges = false;
  start = turn.Now();
  EXPECT_FALSE(connection.AwaitAllSent());
  EXPECT_NEAR(static_cast<double>(turn.Now() - start), 2000, 250);
  socket.acknowledges = true;
  connection.Disconnect();
  EXPECT_FALSE(connection.AwaitAllSent()) << "who is not connected has sent nothing";
}

TEST_F(ConnectionTest, FailuresAreToldAndLeaveNothingOpen) {
  proc.texts.Read("512=T512\r\n800=at %1\r\n517=tcp (%1)\r\n801=T801\r\n802=T802\r\n803=T803\r\n");
  socket.onConnected = [] {};  // connected, but the server never opens the line
  connection.Connect(kOne);
  EXPECT_EQ(connection.CurrentTopic, -1);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Topic 'ONE'\r\nat 127.0.0.1:5100\r\ntcp (T802)"});
  EXPECT_EQ(socket.State(), LinkState::Closed);
  EXPECT_NEAR(static_cast<double>(turn.Now()), 15'000, 300);

  prompts.shown.clear();
  socket.reachable = false;
  connection.Connect(kTwo);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Topic 'TWO'\r\nat 127.0.0.1:5100:3\r\ntcp (broken)"});
  EXPECT_EQ(connection.CurrentTopic, -1);

  prompts.shown.clear();
  socket.reachable = true;
  socket.onConnected = [this] { socket.HangUp(500); };
  connection.Connect(kOne);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Topic 'ONE'\r\nat 127.0.0.1:5100\r\ntcp (T803)"});

  prompts.shown.clear();
  socket.silent = true;
  const auto start = turn.Now();
  profile.WriteIni("TCPIP", "SendTimeOut", "2");
  connection.Connect(kTwo);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Topic 'TWO'\r\nat 127.0.0.1:5100:3\r\ntcp (T801)"});
  EXPECT_NEAR(static_cast<double>(turn.Now() - start), 2000 + 2000 + 15'000, 700);
}

TEST_F(ConnectionTest, AnEarlierLineCannotLinkUpLate) {
  socket.onConnected = [this] { socket.Say("<TRANSPARENT>", 16'000); };
  connection.Connect(kOne);
  turn.After(5000, [] {});
  proc.waits.WaitSeconds(5);
  EXPECT_EQ(connection.CurrentTopic, -1);
  socket.SayNow("<TRANSPARENT>");  // was already on its way
  EXPECT_EQ(connection.CurrentTopic, -1);
}

TEST_F(ConnectionTest, ALaterConnectEndsAnEarlierOne) {
  socket.onConnected = [] {};
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  turn.After(1000, [this] {
    EXPECT_EQ(proc.status.Progress, "T511 ONE");
    connection.Connect(kLocal);
  });
  connection.Connect(kOne);
  EXPECT_EQ(connection.CurrentTopic, kLocal);
  EXPECT_TRUE(prompts.shown.empty()) << prompts.shown.front();
}

TEST_F(ConnectionTest, DdeTargets) {
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  connection.Connect(kLocal);
  EXPECT_EQ(dde.opened.back().server, "ZEK");
  EXPECT_EQ(dde.opened.back().service, "LOC");
  connection.Connect(kNet);
  EXPECT_EQ(dde.opened.back().server, "\\\\PLANT2\\NDDE$");
  EXPECT_EQ(connection.CurrentTopic, kNet);
}

TEST_F(ConnectionTest, WithoutDdeTheReasonIsToldAndTheProgramGoesOn) {
  WithoutDde none([this](std::function<void()> call) { turn.After(0, std::move(call)); });
  ZV_Proc without(Outside{files, profile, turn, prompts, socket, none, tagServer});
  without.settings = proc.settings;
  without.texts.Read("512=T512\r\n800=%1\r\n681=DDE (%1)\r\n682=not here\r\n");
  without.topics = proc.topics;
  turn.tick = [&] { without.connection.Tick(); };
  without.connection.Connect(kNet);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Topic 'NET'\r\n\\\\PLANT2\\NDDE$\r\nDDE (not here)"});
  EXPECT_LT(turn.Now(), 1000);
  without.connection.Connect(kOne);
  EXPECT_EQ(without.connection.CurrentTopic, kOne);
}

TEST_F(ConnectionTest, DdeCommandsArePokedWithTheirReturnBehind) {
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  connection.Connect(kLocal);
  dde.onSent = [this](std::string_view bytes) {
    if (bytes == "{13}") dde.Say("0001>answer\r\n", 500);
  };
  connection.SendCommand("LIST");
  EXPECT_EQ(dde.sent, "LIST{13}");
  EXPECT_EQ(connection.ReplyLine, "answer");
  dde.sent.clear();
  connection.SendCommand("\x05");
  EXPECT_EQ(dde.sent, "\x05");
}

TEST_F(ConnectionTest, DdeTextThatComesWhileACommandIsWrittenIsReadToo) {
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  dde.onSent = [this](std::string_view bytes) {  // the answer comes inside the hand-over
    if (bytes.starts_with("LIST")) dde.Say("0001>HEAD\r\n1!a\r\n", 0);
    if (bytes == "{13}") dde.Say("0002>2!b\r\n3!c\r\nEXIT\r\n", 0);
  };
  connection.Connect(kLocal);
  EXPECT_TRUE(connection.SendCommand("LIST"));
  EXPECT_EQ(proc.log.Lines(), (Shown{"HEAD", "1!a", "2!b", "3!c", "EXIT"}));
  Select("LOC");
  EXPECT_TRUE(Get(Catalogue::Sdc));
  EXPECT_EQ(GotLines(), (Shown{"1!a", "2!b", "3!c"}));
}

// Another command, or another connection, comes between a command and its carriage return.
TEST_F(ConnectionTest, ADdeCommandIsCompletedBeforeTheNext) {
  dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
  for (const bool reconnects : {false, true}) {
    connection.Connect(kLocal);
    dde.sent.clear();
    turn.After(0, [this, reconnects] {
      if (reconnects) {
        connection.Disconnect();
        connection.Connect(kNet);
      } else {
        EXPECT_TRUE(connection.SendCommand("B"));
      }
    });
    connection.SendCommand("A");
    EXPECT_EQ(dde.sent, reconnects ? "A" : "A{13}B{13}");
    EXPECT_EQ(proc.status.Hourglass, 0);
    connection.Disconnect();
  }
}

TEST_F(ConnectionTest, LostTextIsAFaultOfTheLinkAndToldOnce) {
  const std::string cases[] = {
      "0001>\x02" + std::string(100'000, 'x') + "\r\n\xFF",  // the refusal was lost
      std::string(200'000, 'x'),
      "0001>a\xFFtorn\r\n\xFF",
      "<TRANSPARENT>",
  };
  for (const std::string& bytes : cases) {
    connection.Connect(kOne);
    proc.log.Replace({});
    proc.transfer.Kind = TransferKind::WriteWdc;
    for (int time = 1; time <= 2; ++time) {
      const std::uint32_t before = connection.LinkFaults();
      socket.SayNow(bytes);
      EXPECT_NE(connection.LinkFaults(), before) << bytes.substr(0, 20) << " time " << time;
    }
    const auto& lines = proc.log.Lines();
    EXPECT_LE(std::count(lines.begin(), lines.end(), "T516"), 1);
    const std::uint32_t before = connection.LinkFaults();
    connection.Disconnect();
    EXPECT_NE(connection.LinkFaults(), before) << "a transfer on the old link goes on";
  }
}

// Character 10 ends the line itself.
TEST_F(ConnectionTest, EveryByteOfAReplyMakesOneLogLine) {
  std::size_t right = 0;
  for (const std::int16_t topic : {kOne, kTwo, kLocal}) {
    dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
    connection.Connect(topic);
    for (int code = 0; code < 256; ++code) {
      proc.log.Replace({});
      const std::string text =
          "a" + std::string(1, static_cast<char>(code)) + (code == '\n' ? "" : "b\r\n");
      if (topic == kLocal) dde.SayNow("0001>" + text);
      if (topic == kTwo) socket.SayNow(text);
      // Character 255 ends a piece there, and the next begins with a number.
      const std::string piece = code == 255 ? "a\xFF"
                                              "0002>b\r\n"
                                            : text;
      if (topic == kOne) socket.SayNow("0001>" + piece + "\xFF");
      const auto& lines = proc.log.Lines();
      const bool printable =
          lines.size() == 1 && std::none_of(lines[0].begin(), lines[0].end(), [](char shown) {
            return static_cast<unsigned char>(shown) < 32;
          });
      EXPECT_TRUE(printable) << code << " of topic " << topic;
      if (printable) ++right;
    }
  }
  std::cout << "figure: bytes of a reply that make one log line: " << right << " of 768\n";
}

TEST_F(ConnectionTest, CommandsEndInOneReturnUnlessControl) {
  connection.Connect(kOne);
  socket.onSent = [this](std::string_view) { socket.Say("0001>ok\r\n\xFF"); };
  const std::pair<std::string, std::string> cases[] = {
      {"LIST", "LIST\r"}, {"", "\r"}, {"x\x1F", "x\x1F\r"}, {"\x05", "\x05"}, {"a\r", "a\r"}};
  for (const auto& [command, bytes] : cases) {
    socket.sent.clear();
    EXPECT_TRUE(connection.SendCommand(command));
    EXPECT_EQ(socket.sent, bytes);
  }
}

TEST_F(ConnectionTest, ASilentControllerCostsTenSeconds) {
  connection.Connect(kOne);
  const auto start = turn.Now();
  EXPECT_TRUE(connection.SendCommand("x"));
  EXPECT_EQ(connection.ReplyLine, "");
  EXPECT_NEAR(static_cast<double>(turn.Now() - start), 10'000, 250);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(ConnectionTest, AServerThatHangsUpIsToldAndForgotten) {
  proc.texts.Read("515=lost %1");
  connection.Connect(kOne);
  socket.HangUp();
  proc.waits.WaitSeconds(1);
  EXPECT_EQ(connection.CurrentTopic, -1);
  EXPECT_EQ(prompts.shown, Shown{"x lost ONE"});
  EXPECT_FALSE(connection.SendCommand("x"));
  connection.Connect(kOne);
  EXPECT_EQ(connection.CurrentTopic, kOne);
}

TEST_F(ConnectionTest, IdleTimeDisconnectsAndEveryCommandRestartsIt) {
  connection.Connect(kOne);
  proc.waits.WaitSeconds(50);
  connection.SendCommand("x");  // silent: ten seconds of the next sixty
  proc.waits.WaitSeconds(45);
  EXPECT_EQ(connection.CurrentTopic, kOne);
  proc.waits.WaitSeconds(10);
  EXPECT_EQ(connection.CurrentTopic, -1);
  EXPECT_EQ(prompts.shown, Shown{"i T62 60 T63\r\nTopic 'ONE'"});

  connection.Connect(kOne);
  connection.Disconnect();
  proc.waits.WaitSeconds(100);
  EXPECT_EQ(prompts.shown.size(), 1U) << "who has disconnected is not idle";
}

TEST_F(ConnectionTest, ThePausesOfATransferAreNotIdle) {
  connection.Connect(kOne);
  const CountedUp busy(proc.status, &StatusPanels::Busy);
  proc.waits.WaitSeconds(100);
  EXPECT_EQ(connection.CurrentTopic, kOne);
}

TEST_F(ConnectionTest, AConnectThatCameWhileAnOlderOneDisconnectsWins) {
  proc.settings.TagMode = true;
  proc.settings.DisconnectDelayTime = 2;
  connection.Connect(kNet);
  turn.After(1000, [this] { connection.Connect(kOne); });
  connection.Connect(kLocal);
  EXPECT_EQ(connection.CurrentTopic, kOne);
  EXPECT_EQ(proc.status.Connection, "First (ONE)");
}

// A message box or a window runs the event loop inside the wait of an operation.
class HeldWait : public ConnectionTest {
 protected:
  // Calls `inside` after 20 s of such a box, which opens after `milliseconds`.
  void Hold(int milliseconds, std::function<void()> inside) {
    turn.After(milliseconds, [this, inside = std::move(inside)] {
      const auto end = turn.Now() + 20'000;
      while (turn.Now() < end) turn.Once();
      inside();
    });
  }
};

TEST_F(HeldWait, AConnectHasItsOutcomeAllTheSame) {
  for (const std::int16_t topic : {kOne, kTwo, kLocal}) {
    dde.onConnected = [this] { dde.Say("0000><TRANSPARENT>"); };
    Hold(10, [&] {
      EXPECT_EQ(proc.status.Connection, TopicName(topic));
      EXPECT_GT(proc.countdowns.IdleCountdown, 0);
      EXPECT_LT(proc.countdowns.IdleCountdown, 300);
      EXPECT_EQ(proc.status.Waiting, "");
    });
    connection.Connect(topic);
    EXPECT_EQ(connection.CurrentTopic, topic);
    connection.Disconnect();
  }
}

TEST_F(HeldWait, AConnectFailsAllTheSame) {
  socket.onConnected = [] {};
  Hold(10, [&] {
    EXPECT_EQ(prompts.shown.size(), 1U);
    EXPECT_EQ(proc.status.Connection, "T514");
    EXPECT_EQ(socket.State(), LinkState::Closed);
  });
  connection.Connect(kOne);
  EXPECT_EQ(prompts.shown.size(), 1U);
}

TEST_F(HeldWait, ACommandDoesNotStayInItsWait) {
  connection.Connect(kOne);
  for (const int milliseconds : {0, 500}) {  // while it is written; while its answer is awaited
    Hold(milliseconds, [&] {
      EXPECT_EQ(proc.status.Hourglass, 0);
      EXPECT_EQ(proc.status.Waiting, "");
      socket.onSent = [this](std::string_view) { socket.Say("0001>EXIT\r\n\xFF"); };
      Select("ONE");
      EXPECT_TRUE(Get(Catalogue::Sdc)) << milliseconds;
      socket.onSent = [](std::string_view) {};
    });
    EXPECT_TRUE(connection.SendCommand("x"));
    connection.Connect(kOne);
  }
}

TEST_F(ConnectionTest, LocalModeTouchesNoLink) {
  proc.settings.LocalMode = true;
  connection.Connect(kOne);
  EXPECT_FALSE(connection.SendCommand("x"));
  EXPECT_TRUE(connection.Disconnect());
  EXPECT_TRUE(socket.opened.empty());
  EXPECT_EQ(connection.CurrentTopic, -1);
}

TEST_F(ConnectionTest, TagModeOpensAndClosesInOrder) {
  proc.settings.TagMode = true;
  proc.settings.ConnectDelayTime = 2;
  proc.settings.DisconnectDelayTime = 3;
  connection.Connect(kNet);
  EXPECT_EQ(connection.CurrentTopic, kNet);
  EXPECT_EQ(turn.Now(), 2000);
  tags.replies = {"", "0001>text"};
  std::string shown;
  proc.status.Changed = [&] { shown = proc.status.Sequence; };
  EXPECT_TRUE(connection.SendCommand("LIST"));
  proc.waits.WaitSeconds(1);
  EXPECT_EQ(connection.ReplyLine, "text");
  EXPECT_EQ(shown, "0001");
  EXPECT_TRUE(connection.Disconnect());
  EXPECT_EQ(tags.calls, (Shown{"Open  ", "NETTAG=2", "NET=transparent open", "NET=LIST\r",
                               "NET=transparent close", "NETTAG=1", "Close"}));
  tags.calls.clear();
  connection.CloseAllTags();
  EXPECT_EQ(tags.calls, (Shown{"Open  ", "NETTAG=0", "Close"}));
  tags.calls.clear();
  connection.Connect(kOne);  // the first object, and without a tag
  EXPECT_TRUE(connection.Disconnect());
  EXPECT_EQ(tags.calls,
            (Shown{"Open  ", "ONE=transparent open", "ONE=transparent close", "Close"}));
}

TEST_F(ConnectionTest, AFaultOfOneConnectionIsNotToldOfTheNext) {
  proc.settings.TagMode = true;
  tags.takes = [this](const std::string&, const std::string& value) {
    if (value == "1") tags.fault = "late";
    return true;
  };
  tagServer.blocks = [](const std::string& call) { return call == "NETTAG=1" ? 35'000 : 0; };
  connection.Connect(kNet);
  connection.Disconnect();
  connection.Connect(kOne);
  EXPECT_EQ(connection.CurrentTopic, kOne);
  EXPECT_EQ(prompts.shown, Shown{});
}

TEST_F(ConnectionTest, WhatTheTagObjectSaysIsTold) {
  proc.texts.Read("688=Tag (%1)\r\n512=T512\r\n513=T513 %1\r\n");
  proc.settings.TagMode = true;
  tags.opens = false;
  tags.fault = "Open: no licence";
  connection.Connect(kNet);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Tag 'NETTAG' (Topic 'NET')\r\nTag (Open: no licence)"});

  prompts.shown.clear();
  tags.opens = true;
  connection.Connect(kNet);
  tags.refused = {"LIST\r"};
  tags.fault = "TagWrite: no such method";
  EXPECT_FALSE(connection.SendCommand("LIST"));
  EXPECT_EQ(prompts.shown, Shown{"c Tag (TagWrite: no such method)\r\nTag 'NETTAG' (Topic 'NET')"});

  prompts.shown.clear();
  tags.faultInReading = "TagRead: gone";
  proc.waits.WaitSeconds(5);
  const Shown gone{"c Tag (TagRead: gone)\r\nTag 'NETTAG' (Topic 'NET')"};
  EXPECT_EQ(prompts.shown, gone) << "once, not at every poll";
  EXPECT_EQ(connection.CurrentTopic, kNet);

  connection.Disconnect();
  tags.fault.clear();
  prompts.shown.clear();
  connection.Connect(kNet);
  proc.waits.WaitSeconds(5);
  EXPECT_EQ(prompts.shown, gone) << "anew for each connection";

  connection.Disconnect();
  tags.faultInReading.clear();
  prompts.shown.clear();
  // At the call itself, whether it succeeded or not.
  const auto told = [this](const std::string& at, bool taken) {
    tags.takes = [this, at, taken](const std::string&, const std::string& value) {
      if (value == at) tags.fault = at;
      return value != at || taken;
    };
    prompts.shown.clear();
    if (connection.CurrentTopic == -1) connection.Connect(kNet);
    if (at == "transparent close") connection.Disconnect();
    return prompts.shown;
  };
  EXPECT_EQ(told("transparent open", false),
            Shown{"c T512 Tag 'NETTAG' (Topic 'NET')\r\nTag (transparent open)"});
  EXPECT_EQ(told("transparent open", true),
            Shown{"c Tag (transparent open)\r\nTag 'NETTAG' (Topic 'NET')"});
  EXPECT_EQ(told("transparent close", false),
            Shown{"c T513 Tag 'NETTAG' (Topic 'NET')\r\nTag (transparent close)"});
  EXPECT_EQ(told("transparent close", true), Shown{"c Tag (transparent close)"});
}

// What a user does during the pauses of a connect and of a disconnect.
TEST_F(ConnectionTest, TagsAreLeftAsTheirLinesAre) {
  struct Case {
    const char* name;
    std::int16_t first;   // connected before; -1: none
    std::int16_t second;  // connected then; -1: disconnects
    std::int16_t then;    // the same one second later, during the pause
    Shown calls;
  };
  const Shown openNet = {"Open  ", "NETTAG=2", "NET=transparent open"};
  const Shown openOne = {"Open  ", "ONE=transparent open"};
  const Shown closeNet = {"NET=transparent close", "NETTAG=1", "Close"};
  const auto all = [](std::initializer_list<Shown> parts) {
    Shown calls;
    for (const Shown& part : parts) calls.insert(calls.end(), part.begin(), part.end());
    return calls;
  };
  const Case cases[] = {
      {"a second disconnect", kNet, -1, -1, closeNet},
      {"another topic", kNet, -1, kOne, all({closeNet, openOne})},
      {"the same topic", kNet, kOne, kNet, all({closeNet, openNet})},
      {"a connect given up", -1, kNet, -1, {"Open  ", "NETTAG=2", "NETTAG=1", "Close"}},
      {"a connect replaced", -1, kNet, kOne,
       all({{"Open  ", "NETTAG=2", "NETTAG=1", "Close"}, openOne})},
      {"a refused connect replaced", -1, kTwo, kOne,
       all({{"Open  ", "TWOTAG=2", "TWO=transparent open", "TWOTAG=1", "Close"}, openOne})},
  };
  proc.settings.TagMode = true;
  proc.settings.ConnectDelayTime = proc.settings.DisconnectDelayTime = 2;
  proc.topics[kTwo].Tag = "TWOTAG";
  tags.takes = [](const std::string& tag, const std::string& value) {
    return tag != "TWO" || value != "transparent open";
  };
  const auto go = [this](std::int16_t topic) {
    if (topic < 0) connection.Disconnect();
    if (topic >= 0) connection.Connect(topic);
  };
  for (const Case& each : cases) {
    connection.Disconnect();
    go(each.first);
    tags.calls.clear();
    prompts.shown.clear();
    turn.After(each.second == kTwo ? 3000 : 1000, [&] { go(each.then); });
    go(each.second);
    proc.waits.WaitSeconds(5);
    EXPECT_EQ(tags.calls, each.calls) << each.name;
    EXPECT_EQ(connection.CurrentTopic, each.then) << each.name;
    EXPECT_TRUE(prompts.shown.empty()) << each.name << prompts.shown.front();
  }
}

TEST_F(ConnectionTest, ARefusedIdleDisconnectionIsNotDone) {
  proc.settings.TagMode = true;
  tags.refused = {"transparent close"};
  connection.Connect(kOne);
  proc.waits.WaitSeconds(100);
  EXPECT_EQ(prompts.shown, Shown{"c T513"});
  EXPECT_EQ(connection.CurrentTopic, kOne);
}

TEST_F(ConnectionTest, TagModeFailures) {
  proc.settings.TagMode = true;
  tags.refused = {"transparent open"};
  connection.Connect(kNet);
  EXPECT_EQ(connection.CurrentTopic, -1);
  EXPECT_EQ(prompts.shown, Shown{"c T512 Tag 'NETTAG' (Topic 'NET')\r\nT688"});
  EXPECT_EQ(tags.calls.back(), "Close");
  EXPECT_EQ(proc.topics[kNet].TagState, 1);

  tags.refused = {"transparent close"};
  connection.Connect(kNet);
  proc.transfer.Kind = TransferKind::ReadSdc;
  EXPECT_FALSE(connection.Disconnect());
  EXPECT_EQ(connection.CurrentTopic, kNet);
  EXPECT_EQ(proc.transfer.Kind, TransferKind::Idle);
  EXPECT_EQ(prompts.shown.back(), "c T513");
}

}  // namespace
}  // namespace zek
