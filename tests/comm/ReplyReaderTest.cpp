#include <gtest/gtest.h>

#include "comm/ReplyLog.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"

namespace zek {
namespace {

// Records every event as one word.
class Notes final : public ReplyEvents {
 public:
  std::vector<std::string> events;
  void OnLinkUp() override { events.emplace_back("UP"); }
  void OnReplyLine(std::string_view line) override {
    events.push_back("[" + std::string(line) + "]");
  }
  void OnTextDropped() override { events.emplace_back("DROPPED"); }
};

// Delivers bytes as a socket does, in pieces of `size`.
std::vector<std::string> Deliver(const std::string& bytes, std::size_t pieceSize, bool hasDus) {
  Notes notes;
  ReplyReader reader;
  SocketText socket;
  socket.Reset(hasDus);
  for (std::size_t at = 0; at < bytes.size(); at += pieceSize) {
    socket.Take(bytes.substr(at, pieceSize),
                [&](std::string_view text) { reader.HandleReplyText(text, notes); });
  }
  return notes.events;
}

struct DialogueCase {
  const char* name;
  bool hasDus;
  std::string bytes;
  std::vector<std::string> events;
};

std::vector<DialogueCase> Dialogues() {
  using namespace std::string_literals;
  return {
      {"pieces",
       false,
       "<TRANSPARENT>0001>one\r\nt\xFF"
       "0002>wo\r\n\xFF",
       {"UP", "[one]", "[two]"}},
      {"fillers vanish wherever they stand",
       false,
       "0001>a\x17\x17"
       "b\r\rc\r\n\xFF",
       {"[abc]"}},
      {"link up inside a piece drops the line begun",
       false,
       "0001>half\xFF"
       "0002><TRANSPARENT>\xFF"
       "0003>line\r\n\xFF",
       {"UP", "[line]"}},
      {"empty and short pieces",
       false,
       "\xFF"
       "00\xFF"
       "0001>\xFF"
       "0001>\n\xFF",
       {"[]"}},
      {"no end of a piece, no line", false, "0001>one\r\n", {}},
      {"plain text with strays", true, "o\x02n\0e\r\n\x03two\r\n"s, {"[one]", "[two]"}},
      {"plain text keeps character 255", true, "o\xFFne\n", {"[o\xFFne]"}},
  };
}

TEST(ReplyReader, DialoguesReadTheSameHoweverTheyAreCut) {
  for (const DialogueCase& each : Dialogues()) {
    for (std::size_t size = 1; size <= each.bytes.size(); ++size) {
      EXPECT_EQ(Deliver(each.bytes, size, each.hasDus), each.events) << each.name << " by " << size;
    }
  }
}

TEST(ReplyReader, AnEndlessLineKeepsItsNewestCharacters) {
  for (const std::size_t size : {std::size_t{1000}, std::size_t{400'000}}) {
    for (const bool hasDus : {false, true}) {
      const std::string text = (hasDus ? "" : "0000>") + std::string(300'000, 'a') +
                               std::string(kLongestReply, 'b') + "\nnext\n" +
                               (hasDus ? "" : "\xFF");
      const auto events = Deliver(text, size, hasDus);
      ASSERT_GE(events.size(), 2U);
      EXPECT_EQ(events[events.size() - 2], "[" + std::string(kLongestReply, 'b') + "]");
      EXPECT_EQ(events.back(), "[next]");
    }
  }
}

TEST(ReplyReader, DroppingIsToldOnce) {
  Notes notes;
  ReplyReader reader;
  for (int i = 0; i < 5; ++i) reader.HandleReplyText("0000>" + std::string(100'000, 'x'), notes);
  EXPECT_EQ(notes.events, std::vector<std::string>{"DROPPED"});
  reader.Clear();
  reader.HandleReplyText("0000>clean\n", notes);
  EXPECT_EQ(notes.events.back(), "[clean]");
}

TEST(ReplyReader, TheSequenceIsThatOfTheLatestText) {
  Notes notes;
  ReplyReader reader;
  for (const auto& [text, sequence] :
       {std::pair("1234>a\n", "1234"), {"5678>", "5678"}, {"90", "90"}, {"", ""}}) {
    reader.HandleReplyText(text, notes);
    EXPECT_EQ(reader.Sequence(), sequence);
  }
}

TEST(SocketText, NumbersPlainTextAndWraps) {
  SocketText socket;
  socket.Reset(true);
  std::string last;
  for (int i = 0; i < 10'001; ++i) socket.Take("x", [&](std::string_view text) { last = text; });
  EXPECT_EQ(last, "0000>x");
}

TEST(ReplyLog, KeepsTheLast250AndShowsControls) {
  ReplyLog log;
  log.Add("a\tb\x05");
  EXPECT_EQ(log.Lines().back(), "a<9>b<5>");
  for (int i = 0; i < 300; ++i) log.Add(std::to_string(i));
  EXPECT_EQ(log.Lines().size(), 250U);
  EXPECT_EQ(log.Lines().front(), "50");
  log.Add("x\x01");  // after lines that were already read
  log.Add("y");
  EXPECT_EQ(log.Lines().front(), "52");
  EXPECT_EQ(log.Lines()[248], "x<1>");
  EXPECT_EQ(log.Lines().back(), "y");
}

TEST(ReplyLog, AFileMayBeLongerAndShrinksLineByLine) {
  ReplyLog log;
  log.Replace(std::vector<std::string>(400, "x"));
  log.Add("new");
  EXPECT_EQ(log.Lines().size(), 400U);
  EXPECT_EQ(log.Lines().back(), "new");
  EXPECT_EQ(log.Added(), 1U);
  EXPECT_EQ(log.Replaced(), 1U);  // a view reads both
  log.Add("not looked at");
  log.Replace({"a\tb"});
  EXPECT_EQ(log.Lines().back(), "a\tb") << "a file's lines are shown as they are";
}

}  // namespace
}  // namespace zek
