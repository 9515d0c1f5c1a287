#include <windows.h>
#include <gtest/gtest.h>

#include "comm/WinTags.h"
#include "support/SourceTree.h"
#include "windows-links/ServerProcess.h"
#include "windows-links/TagDoubleId.h"

namespace zek {
namespace {

void SetKey(const std::string& key, const std::string& value) {
  ASSERT_EQ(::RegSetValueA(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, value.c_str(),
                           static_cast<DWORD>(value.size())),
            ERROR_SUCCESS)
      << key;
}

void Register(const std::string& library) {
  SetKey("CTAPIX.CTAPI\\CLSID", test::kTagDoubleId);
  SetKey(std::string("CLSID\\") + test::kTagDoubleId + "\\InprocServer32", library);
}

void Unregister() {
  const std::string id = std::string("CLSID\\") + test::kTagDoubleId;
  for (const std::string& key : {id + "\\InprocServer32", id, std::string("CTAPIX.CTAPI\\CLSID"),
                                 std::string("CTAPIX.CTAPI")}) {
    ::RegDeleteKeyA(HKEY_CLASSES_ROOT, key.c_str());
  }
}

class WinTagsTest : public ::testing::Test {
 protected:
  WinTagsTest() {
    const std::string plant = test::SourceTree() + "/data/demo/plant";
    ::SetEnvironmentVariableA("ZEKVIEW_TAG_PLANT", plant.c_str());
    Register(test::ProgramFolder() + "zekview-tag-double.dll");
  }
  void TearDown() override {
    Fault(nullptr);
    Unregister();
  }

  static void Fault(const char* what) { ::SetEnvironmentVariableA("ZEKVIEW_TAG_FAULT", what); }

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
  Register("C:\\nothing.dll");
  EXPECT_FALSE(tags.Create());
  Unregister();
  EXPECT_FALSE(tags.Create());
  EXPECT_EQ(tags.Open("a", "b", "c"), 0);
  EXPECT_EQ(tags.TagRead("SKOLA"), "");
  EXPECT_EQ(tags.Close(), 0);
  EXPECT_NE(tags.TakeFault(), "");
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
    Fault(each.fault);
    EXPECT_EQ(tags.TagWrite("SKOLA", "\x05"), 0) << each.fault;
    EXPECT_EQ(tags.TagRead("SKOLA"), "") << each.fault;
    const std::string fault = tags.TakeFault();
    EXPECT_EQ(fault.substr(0, each.words.size()), each.words);
    EXPECT_GT(fault.size(), std::string("TagWrite: ").size());
    EXPECT_EQ(tags.TakeFault(), "");
  }
  Fault("lack TagRead");
  EXPECT_EQ(tags.TagRead("SKOLA"), "");
  EXPECT_EQ(tags.TakeFault().substr(0, 9), "TagRead: ");
  Fault("fail TagWrite");
  EXPECT_EQ(tags.TagWrite("SKOLA", "\x05"), 0);
  EXPECT_EQ(tags.TakeFault(), "") << "an answer is no fault";
  Fault(nullptr);
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
