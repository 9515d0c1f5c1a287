#include <gtest/gtest.h>

#include "editors/PickList.h"
#include "settings/FileProfile.h"
#include "support/MemoryFiles.h"
#include "support/ScriptedPrompts.h"

namespace zek {
namespace {

struct PickListTest : testing::Test {
  PickList Read(const std::string& ini, std::int32_t table = 3) {
    files.files["/ZEKView.INI"] = ini;
    return ReadPickList(FileProfile(files, "/ZEKView.INI"), table, ',');
  }

  test::MemoryFiles files;
};

std::string Captions(const PickList& list) {
  std::string all;
  for (const PickListItem& item : list.items) all += item.Caption() + "\n";
  return all;
}

TEST_F(PickListTest, SectionsBecomeCaptions) {
  struct Case {
    const char* section;
    const char* captions;
  };
  const Case cases[] = {
      {"[TXI_4]\r\nAv=0\r\n", "Default\t[.]\n"},
      {"[TXI_3]\r\n;Av=0\r\nP\xE5=1\r\nnothing\r\nAv=0\r\n", "Default\t[.]\nP\xE5\t[1]\nAv\t[0]\n"},
      {"[txi_3]\r\nDag=20.50\r\nNatt=-17,5\r\nx=y=2\r\n",
       "Default\t[.]\nDag\t[20,5]\nNatt\t[-17]\nx\t[0]\n"},
  };
  for (const Case& each : cases) EXPECT_EQ(Captions(Read(each.section)), each.captions);
  EXPECT_TRUE(Read("[TXI_0]\r\nAv=0\r\n", 0).items.empty());
}

TEST_F(PickListTest, ABoxTicksItsValueByNumberOrName) {
  const PickList list = Read("[TXI_3]\r\nAv=0\r\nAuto=1\r\nDag=20.5\r\n");
  struct Case {
    const char* box;
    int ticked;  // the index, or -1
  };
  for (const Case& each : {Case{"1", 2}, {"", 0}, {".", 0}, {"auto", 2}, {"20,5", 3}, {"10", -1}}) {
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(list.items.at(static_cast<std::size_t>(i)).IsIn(each.box), i == each.ticked)
          << each.box << " " << i;
    }
  }
}

// The last entry that fits may be cut off: half a number must not be offered.
TEST_F(PickListTest, ASectionThatIsTooLongLosesItsLastEntryAndIsTold) {
  std::string section = "[TXI_3]\r\n";
  for (int i = 100; i < 400; ++i) section += "Value" + std::to_string(i) + "=20.75\r\n";
  const PickList list = Read(section);
  EXPECT_EQ(list.items.back().value, "20,75");
  test::ScriptedPrompts prompts;
  TellCut(list, prompts, LanguageTexts());
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_NE(prompts.shown[0].find("TXI_3"), std::string::npos);
}

}  // namespace
}  // namespace zek
