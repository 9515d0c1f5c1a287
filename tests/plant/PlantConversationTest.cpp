#include <gtest/gtest.h>
#include <vector>

#include "plant/PlantConversation.h"
#include "plant/PlantFixture.h"

namespace zek::sim {
namespace {

using namespace std::string_literals;

TEST(PlantConversation, TransparentTextComesInNumberedPieces) {
  Plant plant = SmallPlant();
  PlantConversation conversation(plant);
  EXPECT_EQ(conversation.Greeting(), "<TRANSPARENT>");
  EXPECT_EQ(conversation.Greeting(), "");
  EXPECT_EQ(conversation.Receive("\x05"), "0000>ZEK1\r\n\xFF");
  EXPECT_EQ(conversation.Receive("LIST SD"), "");
  EXPECT_EQ(conversation.Receive("C\r"),
            "0001>SPECIALDAGAR\r\n 1000 !24-DEC-26                    \xFF"
            "0002>                       !SD1\r\nEXIT\r\n\xFF");
  EXPECT_EQ(conversation.Receive(".WDC\r\n1 nonsense\r\n"),
            "0003>OK\r\n\xFF"
            "0004>\x02\r\n\xFF");
  for (int i = 5; i < 9999; ++i) conversation.Receive("\r");
  EXPECT_EQ(conversation.Receive("\r\r"),
            "9999>OK\r\n\xFF"
            "0000>OK\r\n\xFF");
}

TEST(PlantConversation, AConnectionToAnOutstationIsTransparentFromTheStart) {
  Plant plant = SmallPlant();
  PlantConversation named(plant.outstations.back());
  EXPECT_EQ(named.Greeting(), "<TRANSPARENT>");
  EXPECT_EQ(named.Receive("\x05"), "0000>ZEK2\r\n\xFF");
  EXPECT_EQ(named.Receive("DUS:0\r"), "0001>OK\xC4NT KOMMANDO\r\n\xFF") << "a command like any";
}

TEST(PlantConversation, DusTextIsPlainWithStrays) {
  Plant plant = SmallPlant();
  PlantConversation conversation(plant);
  EXPECT_EQ(conversation.Receive("DUS:3\r"), "");
  EXPECT_EQ(conversation.Greeting(), "");
  EXPECT_EQ(conversation.Receive("\x05"), "\x02ZE\0K2\r\n\x03"s);
  EXPECT_EQ(conversation.Receive("\0PLT7\x02.WDC\x03\r"s), "\x02O\0K\r\n\x03"s);
  EXPECT_TRUE(conversation.TakingLines());
  EXPECT_EQ(conversation.Receive("1 nonsense\r"),
            "\x02"
            "ERROR RADE\0N GODTAS EJ\r\n\x03"s);
  EXPECT_EQ(conversation.Receive("DUS:1\r"),
            "\x02"
            "ERROR RADE\0N GODTAS EJ\r\n\x03"s);
}

TEST(PlantConversation, WhoSpeaksFirst) {
  struct Case {
    const char* what;
    bool greet;
    std::string sent;
    std::string answer;
  };
  const std::vector<Case> cases = {
      {"a transparent client in a hurry", false, "\x05", "<TRANSPARENT>0000>ZEK1\r\n\xFF"},
      {"a DUS client that is late", true, "DUS:3\r\x05", "\x02ZE\0K2\r\n\x03"s},
      {"an unknown DUS", false, "DUS:9\r",
       "\x02"
       "ERROR DU\0S SAKNAS\r\n\x03"s},
      {"no DUS number at all", false, "DUS:x\r",
       "\x02"
       "ERROR DU\0S SAKNAS\r\n\x03"s},
      {"a DUS number beyond all", false, "DUS:1e99\r",
       "\x02"
       "ERROR DU\0S SAKNAS\r\n\x03"s},
  };
  for (const Case& each : cases) {
    Plant plant = SmallPlant();
    PlantConversation conversation(plant);
    const std::string greeting = each.greet ? conversation.Greeting() : "";
    EXPECT_EQ(greeting, each.greet ? "<TRANSPARENT>" : "");
    EXPECT_EQ(conversation.Receive(each.sent), each.answer) << each.what;
  }
  Plant onlyDus = SmallPlant();
  onlyDus.outstations.erase(onlyDus.outstations.begin());
  PlantConversation lost(onlyDus);
  EXPECT_EQ(lost.Receive("\x05"), "<TRANSPARENT>0000>ERROR DUC SAKNAS\r\n\xFF");
}

TEST(PlantConversation, CutsMakeNoDifference) {
  for (const std::string begin : {"", "DUS:3\r"}) {
    const std::string sent =
        begin +
        "\x05LIST WDC\r\nLIST PLT7\rPLT7.WDC\r.WDC\r 1000 junk\r\n\r\n"
        " 701  SU                       !07:00..16:30 !21    \rEXIT\rLIST PLT7\r";
    Plant whole = SmallPlant();
    const std::string answer = PlantConversation(whole).Receive(sent);
    EXPECT_FALSE(answer.empty());
    for (std::size_t cut = 0; cut <= sent.size(); ++cut) {
      Plant plant = SmallPlant();
      PlantConversation conversation(plant);
      std::string joined = conversation.Receive(sent.substr(0, cut));
      joined += conversation.Receive(sent.substr(cut));
      ASSERT_EQ(joined, answer) << cut;
    }
    Plant plant = SmallPlant();
    PlantConversation conversation(plant);
    std::string joined;
    for (const char byte : sent) joined += conversation.Receive({&byte, 1});
    EXPECT_EQ(joined, answer);
  }
}

TEST(PlantConversation, EndlessCommandsAreDroppedAndRefused) {
  Plant plant = SmallPlant();
  PlantConversation conversation(plant);
  conversation.Greeting();
  std::string endless(PlantConversation::kLongestCommand + 1, 'x');
  EXPECT_EQ(conversation.Receive(endless), "");
  EXPECT_EQ(conversation.Receive("LIST WDC"), "");
  EXPECT_EQ(conversation.Receive("\r"), "0000>\x02\r\n\xFF");
  EXPECT_EQ(conversation.Receive("EXIT\r"), "0001>OK\r\n\xFF");
}

TEST(PlantConversation, EveryByteValueIsAnswered) {
  for (int code = 0; code < 256; ++code) {
    Plant plant = SmallPlant();
    PlantConversation conversation(plant);
    const std::string sent = ".WDC\r"s + std::string(3, static_cast<char>(code)) + "\rEXIT\r";
    const std::string answer = conversation.Receive(sent);
    EXPECT_EQ(answer.substr(answer.size() - 5), "OK\r\n\xFF") << code;
  }
}

}  // namespace
}  // namespace zek::sim
