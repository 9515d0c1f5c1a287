#include <gtest/gtest.h>
#include <string>

#include "comm/Countdowns.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"
#include "comm/StatusPanels.h"
#include "support/TestSession.h"

// The behaviour at a limit and one above it.
namespace zek {
namespace {

struct Line final : ReplyEvents {
  std::string line;
  bool dropped = false;
  void OnLinkUp() override {}
  void OnReplyLine(std::string_view text) override { line = text; }
  void OnTextDropped() override { dropped = true; }
};

TEST(Limits, CharactersOfAReplyLineAndOfAPiece) {
  for (const std::size_t more : {0U, 1U}) {
    const std::string text(kLongestReply + more, 'x');
    ReplyReader reader;
    Line received;
    reader.HandleReplyText("0001>" + text, received);
    reader.HandleReplyText("0001>\n", received);
    EXPECT_EQ(received.line.size(), kLongestReply);
    EXPECT_EQ(received.dropped, more > 0);
    SocketText socket;
    socket.Reset(false);
    socket.Take(text, [](std::string_view) {});
    EXPECT_EQ(socket.TakeDropped(), more > 0);
  }
}

TEST(Limits, DotsAndTicks) {
  StatusPanels panels;
  for (int dots = 1; dots <= 251; ++dots) {
    panels.Dot();
    EXPECT_EQ(panels.Transfer.size(), std::min<std::size_t>(dots, 250));
  }
  EXPECT_EQ(TicksOf(6553.2), 32766);
  EXPECT_EQ(TicksOf(6553.4), 32767);
  EXPECT_EQ(TicksOf(6553.6), 32767);
}

TEST(Limits, Topics) {
  for (const int topics : {300, 301}) {
    test::TestSession session;
    std::string& ini = session.files.files["/ini/ZEKView.INI"];
    ini = "[General]\nDisconnectTime=60\nGetTSCTimeout=5\n[Topics]\n";
    for (int topic = 0; topic < topics; ++topic) ini += "K" + std::to_string(topic) + "=YES\n";
    session.prompts.shown.clear();
    session.Load("");
    EXPECT_EQ(session.proc.topics.TopicCount(), 300);
    EXPECT_EQ(session.prompts.shown.size(), topics > 300 ? 1U : 0U);
  }
}

}  // namespace
}  // namespace zek
