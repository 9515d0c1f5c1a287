#include <windows.h>
#include <future>
#include <gtest/gtest.h>

#include "comm/SystemTransports.h"
#include "windows-links/TagRegistration.h"

namespace zek {
namespace {

using test::TagRegistration;

struct WinTagsTest : ::testing::Test {
  TagRegistration registration;
  WinTags tags;
};

TEST_F(WinTagsTest, ServesAPlant) {
  ASSERT_TRUE(tags.Create());
  EXPECT_NE(tags.Open("computer", "user", "password"), 0);
  EXPECT_NE(tags.TagWrite("LINK", "2"), 0);
  EXPECT_NE(tags.TagWrite("SKOLA", "transparent open"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "");
  EXPECT_NE(tags.TagWrite("SKOLA", "\x05"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "0000>ZEK1\r\n");
  EXPECT_NE(tags.TagWrite("SKOLA", "k\xE4nns ej igen\r"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "0000>OK\xC4NT KOMMANDO\r\n");
  EXPECT_NE(tags.TagWrite("SKOLA", "transparent close"), 0);
  EXPECT_EQ(tags.TagWrite("SKOLA", "LIST SDC\r"), 0);
  EXPECT_NE(tags.Close(), 0);
  EXPECT_EQ(tags.TakeFault(), "");
}

TEST_F(WinTagsTest, AnObjectThatCannotBeCreatedFailsEveryCall) {
  EXPECT_EQ(tags.Open("a", "b", "c"), 0) << "before it is created";
  TagRegistration::Register("C:\\nothing.dll");
  EXPECT_FALSE(tags.Create());
  TagRegistration::Unregister();
  EXPECT_FALSE(tags.Create());
  EXPECT_EQ(tags.Open("a", "b", "c"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "");
  EXPECT_EQ(tags.Close(), 0);
  EXPECT_NE(tags.TakeFault(), "");
}

// Without a model it lives in the first thread, which must then take its calls.
TEST_F(WinTagsTest, AnObjectOfAnyThreadingModelServesInAThread) {
  for (const char* const model : {"Apartment", "Both", ""}) {
    TagRegistration::Register(test::ProgramFolder() + "zekview-tag-double.dll", model);
    SystemTags served([](const std::function<void()>& call) { call(); });
    EXPECT_NE(served.Create().status, 0) << model;
    std::promise<std::string> read;
    std::future<std::string> text = read.get_future();
    served.Begin(
        [](TagObject& object, TagAnswer& answer) {
          object.TagWrite("SKOLA", "transparent open");
          object.TagWrite("SKOLA", "\x05");
          answer.text = object.TagRead("SKOLA");
        },
        [&read](const TagAnswer& answer) { read.set_value(answer.text); });
    while (text.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready)
      RunSystemMessages();
    EXPECT_EQ(text.get(), "0000>ZEK1\r\n") << model;
  }
}

TEST_F(WinTagsTest, WhatTheObjectAnswersAsStatus) {
  struct Case {
    const char* type;
    bool done;
    bool fault;
  };
  const Case cases[] = {{"I1", true, false},     {"UI1", true, false},    {"I4", true, false},
                        {"LARGE", true, false},  {"INT", true, false},    {"R8", true, false},
                        {"BOOL", true, false},   {"BYREF", true, false},  {"BSTR", true, false},
                        {"FALSE", false, false}, {"EMPTY", false, false}, {"ERROR", false, true},
                        {"NULL", false, true},   {"WORD", false, true}};
  ASSERT_TRUE(tags.Create());
  for (const Case& each : cases) {
    EXPECT_EQ(tags.TagWrite("TYPE", each.type) != 0, each.done) << each.type;
    EXPECT_EQ(!tags.TakeFault().empty(), each.fault) << each.type;
  }
}

TEST_F(WinTagsTest, AMethodThatIsMissingOrRaisesFailsThatCallOnly) {
  ASSERT_TRUE(tags.Create());
  ASSERT_NE(tags.TagWrite("SKOLA", "transparent open"), 0);
  struct Case {
    const char* fault;
    std::string words;
  };
  const Case cases[] = {{"lack TagWrite", "TagWrite: "},
                        {"bare TagWrite", "TagWrite: "},
                        {"raise TagWrite", "TagWrite: the plant is on fire"}};
  for (const Case& each : cases) {
    TagRegistration::Fault(each.fault);
    EXPECT_EQ(tags.TagWrite("SKOLA", "\x05"), 0) << each.fault;
    EXPECT_EQ(tags.TagRead("SKOLA"), "") << each.fault;
    const std::string fault = tags.TakeFault();
    EXPECT_EQ(fault.substr(0, each.words.size()), each.words);
    EXPECT_GT(fault.size(), std::string("TagWrite: ").size());
    EXPECT_EQ(tags.TakeFault(), "");
  }
  TagRegistration::Fault("lack TagRead");
  EXPECT_EQ(tags.TagRead("SKOLA"), "");
  EXPECT_EQ(tags.TakeFault().substr(0, 9), "TagRead: ");
  TagRegistration::Fault("fail TagWrite");
  EXPECT_EQ(tags.TagWrite("SKOLA", "\x05"), 0);
  EXPECT_EQ(tags.TakeFault(), "") << "an answer is no fault";
  TagRegistration::Fault(nullptr);
  EXPECT_NE(tags.TagWrite("SKOLA", "\x05"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "0000>ZEK1\r\n");
}

TEST_F(WinTagsTest, ThePasswordStaysOutOfMessages) {
  ASSERT_TRUE(tags.Create());
  EXPECT_EQ(tags.Open("computer", "raise", "s3cret"), 0);
  EXPECT_EQ(tags.TakeFault(), "Open: no user raise/***");
}

TEST_F(WinTagsTest, TextsOfAnyLengthAndByteArrive) {
  ASSERT_TRUE(tags.Create());
  EXPECT_NE(tags.Open("", "", ""), 0);
  const std::string unknown(70'000, '\xE5');
  EXPECT_EQ(tags.TagWrite(unknown, unknown), 0);
  EXPECT_EQ(tags.TagRead(unknown), "");
  EXPECT_EQ(tags.TakeFault(), "");
}

}  // namespace
}  // namespace zek
