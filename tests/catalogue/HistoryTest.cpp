#include <gtest/gtest.h>

#include "catalogue/Catalogue.h"
#include "catalogue/History.h"
#include "settings/Settings.h"
#include "support/TransferSession.h"
#include "system/Paths.h"

namespace zek {
namespace {

constexpr LocalTime kMorning{2026, 11, 21, 8, 30, 0};
const std::string kLocal = "/zek/f1 WDC.TXT";
const std::string kFolder = WithSeparator("/zek/History");

// The ids of the kept copies of "f1 WDC.TXT", newest first.
std::vector<std::string> Ids(Files& files, int count = 50) {
  std::vector<std::string> ids;
  for (const KeptCopy& copy : History(files, "/zek/", "f1 WDC.TXT", count).Kept()) {
    ids.push_back(copy.id);
  }
  return ids;
}

TEST(History, KeepsWhatIsReplacedUnderItsTime) {
  test::MemoryFiles files;
  History history(files, "/zek/", "f1 WDC.TXT", 50);
  EXPECT_FALSE(history.Keep("first", kMorning));  // nothing to keep
  files.files[kLocal] = "first";
  EXPECT_FALSE(history.Keep("first", kMorning));  // nothing would change
  EXPECT_TRUE(history.Kept().empty());
  EXPECT_FALSE(history.Keep("second", kMorning));
  const std::vector<KeptCopy> kept = history.Kept();
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_EQ(kept[0].time, "2026-11-21 08:30:00");
  EXPECT_EQ(kept[0].path, kFolder + "f1 WDC 20261121-083000.TXT");
  EXPECT_EQ(files.files[kept[0].path], "first");
  EXPECT_FALSE(history.Keep("third", kMorning));  // already kept: the replacing must have failed
  EXPECT_EQ(history.Kept().size(), 1U);
  files.files[kLocal] = "second";
  EXPECT_FALSE(history.Keep(std::nullopt, kMorning));  // erased in the same second
  EXPECT_EQ(Ids(files), (std::vector<std::string>{"20261121-083000-2", "20261121-083000"}));
  files.files[kLocal] = "third";
  EXPECT_FALSE(history.Keep(std::nullopt, {2026, 1, 2, 3, 4, 5}));
  EXPECT_EQ(Ids(files).back(), "20260102-030405");
  files.files[kFolder + "f1 WDC 20260102-030405-9999.TXT"] = "fourth";
  EXPECT_EQ(Ids(files).size(), 4U);
}

TEST(History, TheOldestGoAndOnlyOnesOfItsOwn) {
  test::MemoryFiles files;
  files.files[kLocal] = "x";
  for (const char* const name :
       {"f1 WDC 2 20261121-083000.TXT", "f1 WDC.TXT", "f1 WDC 20261121-083000-.TXT",
        "f1 WDC 20261121-083000-12345.TXT", "f1 WDC 20261121.TXT", "f1 WDC .TXT",
        "f1 WDC 20261121-083000.TXT.zvtmp12", "f1 WDC 20261121-083000.BAK",
        "g1 WDC 20261121-083000.TXT"}) {
    files.files[kFolder + name] = "foreign";
  }
  const std::size_t foreign = files.files.size();
  LocalTime now = kMorning;
  for (int second = 0; second < 5; ++second) {
    now.second = second;
    files.files[kLocal] += "x";
    History history(files, "/zek/", "f1 WDC.TXT", 3);
    EXPECT_FALSE(history.Keep(std::nullopt, now));
    history.Prune();
  }
  for (int more = 0; more < 10; ++more) {  // eleven in one second: "-10" is newer than "-9"
    files.files[kLocal] += "x";
    History history(files, "/zek/", "f1 WDC.TXT", 3);
    EXPECT_FALSE(history.Keep(std::nullopt, now));
    history.Prune();
  }
  EXPECT_EQ(Ids(files), (std::vector<std::string>{"20261121-083004-11", "20261121-083004-10",
                                                  "20261121-083004-9"}));
  EXPECT_EQ(files.files.size(), foreign + 3);
  History none(files, "/zek/", "f1 WDC.TXT", 0);
  EXPECT_FALSE(none.Keep(std::nullopt, now));
  none.Prune();
  EXPECT_EQ(files.files.size(), foreign + 3);
  // The clock was set back: the copy just kept stays, although others have later names.
  files.files[kLocal] += "x";
  History one(files, "/zek/", "f1 WDC.TXT", 1);
  EXPECT_FALSE(one.Keep(std::nullopt, kMorning));
  one.Prune();
  EXPECT_EQ(Ids(files), std::vector<std::string>{"20261121-083000"});
}

TEST(History, LongNamesAreCutAndKeptApart) {
  test::MemoryFiles files;
  for (const char last : {'a', 'b'}) {
    const std::string name = std::string(240, '\xE5') + last + ".TXT";
    files.files[LocalPath("/zek/", name)] = last;
    History history(files, "/zek/", name, 50);
    EXPECT_FALSE(history.Keep(std::nullopt, kMorning));
    ASSERT_EQ(history.Kept().size(), 1U);
    EXPECT_LE(history.Kept()[0].path.size(), 255 + kFolder.size());
    const char* const hash =
        last == 'a' ? "~3400330620 " : "~3450663477 ";  // the same in every version
    EXPECT_NE(history.Kept()[0].path.find(hash), std::string::npos) << history.Kept()[0].path;
    EXPECT_EQ(files.files[history.Kept()[0].path], std::string(1, last));
  }
}

TEST(History, DifferencesAreThoseOfTheLines) {
  struct Case {
    const char* before;
    const char* after;
    std::vector<std::string> differences;
  };
  const std::vector<Case> cases = {
      {"", "", {}},
      {"a\r\nb\r\n", "a\nb", {}},
      {"a\r\nb\r\nc\r\n", "a\r\nx\r\nc\r\nd\r\n", {"- b", "+ x", "+ d"}},
      {"a\r\n", "", {"- a"}},
      {"a\r\n", "x\r\na\r\n", {"+ x"}},
      {"x\r\na\r\n", "a\r\n", {"- x"}},
      {".DFV = 1\r\na\r\n", ".DFV = 2\r\na\r\n", {"- .DFV = 1", "+ .DFV = 2"}},
  };
  for (const Case& c : cases) EXPECT_EQ(DifferencesOf(c.before, c.after), c.differences);
}

// The selected node's weekday copy is "f127_0_0_1_5100_3 Second TSC1.TXT".
class HistoryOfTransfers : public testing::Test, public test::TransferSession {
 public:
  HistoryOfTransfers() {
    SelectTwo();
    path = LocalPath("/zek/", Id().localFile);
    files.files[path] = "old\r\n";
  }

  std::string path;
};

TEST_F(HistoryOfTransfers, StoreEraseAndRestoreKeepFirst) {
  EXPECT_TRUE(Store({"new"}));
  EXPECT_EQ(files.files[path], "new\r\n");
  EXPECT_TRUE(Erase());
  EXPECT_FALSE(files.files.contains(path));
  ASSERT_EQ(Kept().size(), 2U);
  EXPECT_EQ(files.files[Kept()[0].path], "new\r\n");
  EXPECT_EQ(Compare(Kept()[1]), std::vector<std::string>{"- old"});
  EXPECT_TRUE(Restore(Kept()[1]));
  EXPECT_EQ(files.files[path], "old\r\n");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(HistoryOfTransfers, NoMoreIsKeptThanWanted) {
  proc.settings.HistoryCount = 1;
  EXPECT_TRUE(Store({"new"}) && Store({"newer"}));
  EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(HistoryOfTransfers, WhatCanNotBeKeptStays) {
  files.failWrites = FileError::Reason::Full;
  EXPECT_FALSE(Store({"new"}));
  EXPECT_FALSE(Erase());
  EXPECT_EQ(files.files[path], "old\r\n");
  ASSERT_EQ(prompts.shown.size(), 2U);
  EXPECT_NE(prompts.shown[0].find("T769"), std::string::npos);
  files.failWrites.reset();
  EXPECT_TRUE(Store({"new"}));
  const KeptCopy kept = Kept().at(0);
  const auto before = files.files;
  files.failReads = FileError::Reason::Denied;
  EXPECT_FALSE(Erase());
  EXPECT_FALSE(Restore(kept));
  EXPECT_FALSE(Compare(kept));
  EXPECT_EQ(prompts.shown.size(), 5U);
  EXPECT_EQ(files.files, before);
}

}  // namespace
}  // namespace zek
