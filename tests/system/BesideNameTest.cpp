#include <gtest/gtest.h>

#include "system/BesideName.h"

namespace zek {
namespace {

TEST(BesideName, StandsBesideItsTargetAndFits) {
  EXPECT_EQ(BesideName("/d.ir/a WDC.TXT", 12, 1), "/d.ir/a WDC.TXT.zvtmp12");
  EXPECT_EQ(BesideName("name", 12, 3), "name.zvtmp12-3");
  const std::string longest = BesideName("/dir/" + std::string(300, 'x'), 4'194'304, 100);
  EXPECT_EQ(longest, "/dir/" + std::string(200, 'x') + "~.zvtmp4194304-100");
  EXPECT_EQ(BesideName(std::string(300, 'x'), 1, 1), std::string(200, 'x') + "~.zvtmp1");
  const std::string device = "NUL" + std::string(250, ' ');
  EXPECT_NE(BesideName(device, 1, 1).find(" ~.zvtmp1"), std::string::npos) << "no device";
  std::string letters = "/x";  // å is two bytes and must not be cut
  for (int i = 0; i < 200; ++i) letters += "å";
  EXPECT_EQ(BesideName(letters, 1, 1).size(), 1 + 199U + std::string("~.zvtmp1").size());
}

TEST(BesideName, TellsTheProcess) {
  EXPECT_EQ(BesideProcess("a.zvtmp1.zvtmp4194304-12"), 4'194'304U);
  EXPECT_EQ(BesideProcess("a.zvtmp7"), 7U);
}

TEST(BesideName, NothingElseIsTakenForOne) {
  for (const char* const name : {"a.zvtmp1", ".zvtmp99", "a.zvtmp7-2", "a.zvtmp.zvtmp7"}) {
    EXPECT_TRUE(IsBesideName(name)) << name;
  }
  for (const char* const name :
       {"a WDC.TXT", "a.zvtmp", "a.zvtmp1.TXT", "a.zvtmpx", "zvtmp1", ""}) {
    EXPECT_FALSE(IsBesideName(name)) << name;
  }
}

}  // namespace
}  // namespace zek
