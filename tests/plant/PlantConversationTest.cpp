#include <gtest/gtest.h>

#include "plant/PlantConversation.h"
#include "plant/PlantFixture.h"
#include "support/CaseFile.h"
#include "text/Controls.h"

namespace zek::sim {
namespace {

using namespace std::string_literals;

std::string Shown(std::string text) {
  ShowControls(text);
  return text + "\n";
}

TEST(PlantConversation, Cases) {
  test::CheckCases("plant-conversations.txt", [](const test::TextCase& given) {
    const auto has = [&](const char* option) {
      return given.head.find(option) != std::string::npos;
    };
    Plant plant = SmallPlant();
    if (has("DUS only")) plant.outstations.erase(plant.outstations.begin());
    PlantConversation conversation =
        has("ZEK2") ? PlantConversation(plant.outstations.back()) : PlantConversation(plant);
    std::string outcome = has("greeted") ? Shown(conversation.Greeting()) : "";
    for (const std::string& sent : given.given) outcome += Shown(conversation.Receive(sent));
    EXPECT_EQ(conversation.Greeting(), "") << "at most once";
    return outcome;
  });
}

TEST(PlantConversation, PiecesAreNumberedTo9999) {
  Plant plant = SmallPlant();
  PlantConversation conversation(plant);
  for (int i = 0; i < 9999; ++i) conversation.Receive("\r");
  EXPECT_EQ(conversation.Receive("\r\r"),
            "9999>OK\r\n\xFF"
            "0000>OK\r\n\xFF");
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
  const std::string longest(PlantConversation::kLongestCommand, ' ');
  EXPECT_EQ(conversation.Receive(longest + "\r"), "0000>OK\r\n\xFF");
  EXPECT_EQ(conversation.Receive(longest + 'x'), "");
  EXPECT_EQ(conversation.Receive("LIST WDC"), "");
  EXPECT_EQ(conversation.Receive("\r"), "0001>\x02\r\n\xFF");
  EXPECT_EQ(conversation.Receive("EXIT\r"), "0002>OK\r\n\xFF");
  EXPECT_FALSE(conversation.TakingLines());
  conversation.Receive(".WDC\r");
  EXPECT_TRUE(conversation.TakingLines());
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
