#include <gtest/gtest.h>
#include <string>

#include "comm/Countdowns.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"
#include "comm/StatusPanels.h"

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

TEST(Limits, CharactersThatAreKeptOfWhatDoesNotEnd) {
  const std::string endless(3 * kLongestReply, 'x');
  SocketText socket;
  std::size_t handedOver = 0;
  socket.Reset(false);
  for (const std::string& text : {endless, std::string("\xFF")})
    socket.Take(text, [&](std::string_view piece) { handedOver = piece.size(); });
  EXPECT_EQ(handedOver, kLongestReply);
}

TEST(Limits, SequenceNumbers) {
  SocketText socket;
  std::string last;
  socket.Reset(true);
  const auto take = [&] { socket.Take("x", [&](std::string_view text) { last = text; }); };
  for (int text = 0; text < 10000; ++text) take();
  EXPECT_EQ(last, "9999>x");
  take();
  EXPECT_EQ(last, "0000>x");
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

}  // namespace
}  // namespace zek
