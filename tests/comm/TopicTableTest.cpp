#include <gtest/gtest.h>

#include "app/TopicList.h"
#include "comm/TopicTable.h"
#include "lang/TextNumbers.h"
#include "support/TestSession.h"

namespace zek {
namespace {

TEST(TopicTable, ParsesEntries) {
  const auto topic = ParseTopic("ahu1=yes,type2x, plant2 ,Skola \xE5,Tag.1,x=z", false);
  ASSERT_TRUE(topic);
  EXPECT_EQ(topic->TopicName, "AHU1");
  EXPECT_TRUE(topic->ShowInList);
  EXPECT_EQ(topic->TopicType, Generation::Zek2);
  EXPECT_EQ(topic->Address, "PLANT2");
  EXPECT_EQ(topic->Description, "Skola \xE5");
  EXPECT_EQ(topic->Tag, "Tag.1");
  EXPECT_EQ(ParseTopic("ahu1=", true)->TopicName, "ahu1");
  EXPECT_FALSE(ParseTopic(";x=1", false));
  EXPECT_FALSE(ParseTopic("no equals", false));
  EXPECT_TRUE(ParseTopic("a=1,1,h:1:0", false)->HasDus);
  EXPECT_FALSE(ParseTopic("a=0,1,h:1:", false)->HasDus);
}

TEST(TopicEntry, ChangesOnlyWhatIsEntered) {
  const struct {
    TopicEntry entry;
    const char* before = nullptr;
    std::int32_t wrong = 0;
    const char* after = nullptr;
  } cases[] = {
      {{"A", Generation::Zek1, "h:1", "", "D"}, "", 0, "YES,ZEK1,h:1,D"},
      {{"a-1_b", Generation::Zek2, "H:5100", "3", ""},
       "no,1, h:5100:3 ,D,T,x",
       0,
       "no,ZEK2, h:5100:3 ,,T,x"},
      {{"A", Generation::Zek2, "PC", "", "D"}, "1,zek 2,h:1", 0, "1,zek 2,PC,D"},
      {{"\xC5", Generation::Zek1, "", "", ""}, "", text::kTopicBadName, nullptr},
      {{"general", Generation::Zek1, "", "", ""}, "", text::kTopicNameReserved, nullptr},
      {{"Txi_1", Generation::Zek1, "", "", ""}, "", text::kTopicNameReserved, nullptr},
      {{"A", Generation::Zek1, "h:70000", "", ""}, "", text::kTopicBadAddress, nullptr},
      {{"A", Generation::Zek1, "h:1:2", "", ""}, "", text::kTopicBadAddress, nullptr},
      {{"A", Generation::Zek1, "PC", "3", ""}, "", text::kTopicBadDus, nullptr},
      {{"A", Generation::Zek1, "h:1", "3x", ""}, "", text::kTopicBadDus, nullptr},
      {{"A", Generation::Zek1, "h:1", "3", "a,b"}, "", text::kTopicBadDescription, nullptr},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Complaint(each.entry).value_or(0), each.wrong) << each.entry.name;
    if (each.after != nullptr) {
      EXPECT_EQ(TopicValue(each.entry, each.before), each.after);
    }
  }
}

TEST(TopicList, AChangeTakesEffectAtOnceAndKeepsTheOtherLines) {
  test::TestSession session;
  ZV_Proc& proc = session.proc;
  std::string& file = session.files.files["/ini/ZEKView.INI"];
  file = "; c\n[Topics]\n;x=1\nOne = no,1,h:1,First\n\nTWO=1\n[ONE]\nAHU1=x\n";
  session.Load("");
  EXPECT_TRUE(SaveTopic(proc, {"ONE", Generation::Zek1, "h:2", "", "New"}));
  EXPECT_FALSE(proc.profile.WriteIni("General", "DialogMode", "Default"));
  EXPECT_TRUE(SaveTopic(proc, {"NEW", Generation::Zek2, "h:3", "4", "Third"}));
  EXPECT_TRUE(RemoveTopic(proc, "two"));
  EXPECT_EQ(file,
            "; c\n[Topics]\n;x=1\nOne=no,1,h:2,New\r\n\nNEW=YES,ZEK2,h:3:4,Third\r\n[ONE]\nAHU1=x\n"
            "[General]\r\nDialogMode=Default\r\n");
  EXPECT_EQ(proc.topics.TopicCount(), 2);
  EXPECT_EQ(proc.topics.Listed(proc.settings).size(), 2U);
  session.socket.onConnected = [&session] { session.socket.Say("<TRANSPARENT>"); };
  EXPECT_EQ(TestTopic(proc, EntryOf(proc.topics[0])), Contact::Silent);
  session.socket.reachable = false;
  EXPECT_EQ(TestTopic(proc, EntryOf(proc.topics[0])), Contact::None);
  EXPECT_EQ(proc.topics.TopicCount(), 2);
}

TEST(TopicList, ATestSaysWhatTheControllerDid) {
  const struct {
    std::string topic;
    std::string reply;
    int cancelled = 0;  // after so many milliseconds
    Contact contact = Contact::None;
  } cases[] = {
      {"ONE", "0001>OK\r\n\r\n\xFF", 60'000, Contact::Answers},
      {"ONE", "", 3000, Contact::Stopped},
      {"NET", "0001>OK", 60'000, Contact::Answers},
      {"NET", "", 60'000, Contact::Silent},
      {"NET", "", 3000, Contact::Stopped},
  };
  for (const auto& each : cases) {
    test::TestSession session;
    ZV_Proc& proc = session.proc;
    proc.settings.TagMode = each.topic == "NET";
    session.socket.onConnected = [&session] { session.socket.Say("<TRANSPARENT>"); };
    session.socket.onSent = [&](std::string_view) { session.socket.Say(each.reply); };
    session.tags.replies = {"", "", each.reply};
    session.turn.After(each.cancelled, [&proc] { proc.waits.Cancel(); });
    EXPECT_EQ(TestTopic(proc, EntryOf(proc.topics[proc.topics.Find(each.topic)])), each.contact);
    EXPECT_TRUE(session.prompts.shown.empty());
    const std::size_t calls = proc.settings.TagMode ? 7 : 0;  // its line is switched too
    EXPECT_EQ(session.tags.calls.size(), calls) << each.topic;
  }
}

TEST(TopicList, ALineThatWasNotReadAsAWholeStays) {
  test::TestSession session;
  std::string& file = session.files.files["/ini/ZEKView.INI"];
  file = "[Topics]\nA=1,1,h:1,a\nX=" + std::string(16'300, 'x') + "\nB=1,1,h:1," +
         std::string(100, 'b') + ",TAG\nC=1,1,h:1,c\n";
  session.Load("");
  session.prompts.shown.clear();
  const std::string before = file;
  EXPECT_EQ(session.proc.topics.TopicCount(), 3);
  EXPECT_FALSE(SaveTopic(session.proc, EntryOf(session.proc.topics[2])));
  EXPECT_FALSE(SaveTopic(session.proc, {"C", Generation::Zek1, "h:2", "", ""}));
  EXPECT_TRUE(file == before);
  const auto told = [&](std::int32_t number, const char* name) {
    return "x " + session.proc.ToUser().Text(number, {name});
  };
  EXPECT_EQ(session.prompts.shown,
            (std::vector{told(text::kTopicsTooLong, "B"), told(text::kTopicNotRead, "C")}));
  session.prompts.shown.clear();
  EXPECT_TRUE(SaveTopic(session.proc, {"A", Generation::Zek1, "h:2", "", "a"}));
  file = "[Topics]\nA=1,1,h:1,a\nX=" + std::string(33'000, 'x') + "\n";
  EXPECT_FALSE(SaveTopic(session.proc, {"A", Generation::Zek1, "h:2", "", "a"}));
}

TEST(TopicTable, ListsByModeAndSwedishOrder) {
  test::TestSession session;
  session.files.files["/ini/ZEKView.INI"] =
      "[General]\nDisconnectTime=60\nGetTSCTimeout=5\nDialogMode=Default\n"
      "[Topics]\nA=1,1,,\xD6st\nB=YES,1,,\xE5ker\nC=no,1,,Norr\nD=1,1,,zon\nE=1,1,,alfa\n";
  session.Load("");
  EXPECT_EQ(session.proc.topics.Listed(session.proc.settings),
            (std::vector<std::int16_t>{4, 3, 1, 0}));
  session.proc.settings.TopicComboIndex = 1;
  session.proc.settings.DialogMode = 2;
  EXPECT_EQ(session.proc.topics.Listed(session.proc.settings),
            (std::vector<std::int16_t>{0, 1, 2, 3, 4}));
  session.proc.settings.DialogMode = 0;
  EXPECT_TRUE(session.proc.topics.Listed(session.proc.settings).empty());
}

TEST(TopicTable, TellsOfACutSectionAndOfTooManyTopics) {
  test::TestSession session;
  const auto load = [&session](const std::string& entries) {
    session.files.files["/ini/ZEKView.INI"] = "[Topics]\n" + entries;
    session.prompts.shown.clear();
    session.proc.topics.LoadTopics(session.profile, session.proc.settings, session.proc.texts,
                                   session.prompts);
    return session.proc.topics.TopicCount();
  };
  std::string topics;
  for (int i = 0; i < 300; ++i) topics += "T" + std::to_string(i) + "=1\n";
  EXPECT_EQ(load(topics), 300);
  EXPECT_TRUE(session.prompts.shown.empty());
  EXPECT_EQ(load(topics + "T=1\n"), 300);
  EXPECT_EQ(session.prompts.shown, std::vector<std::string>{"x T510"});

  EXPECT_EQ(load("A=" + std::string(20'000, 'x') + "\n"), 1);
  EXPECT_EQ(session.prompts.shown.back(), "x T408\r\n16382 (>16384)\r\nT409");
}

}  // namespace
}  // namespace zek
