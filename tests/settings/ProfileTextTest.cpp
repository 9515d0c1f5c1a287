#include <gtest/gtest.h>

#include "settings/FileProfile.h"
#include "settings/ProfileText.h"
#include "support/MemoryFiles.h"

namespace zek {
namespace {

TEST(ProfileText, WritesAndKeepsEveryOtherByte) {
  struct {
    const char* before;
    const char* after;
  } const cases[] = {
      {"", "[s]\r\nk=v\r\n"},
      {"x=1", "x=1\r\n[s]\r\nk=v\r\n"},
      {"[S]\n K = old\nK=2\n", "[S]\nk=v\r\nK=2\n"},
      {"; c\n[s]\na=1\n\n\n[t]\nk=3\n", "; c\n[s]\na=1\nk=v\r\n\n\n[t]\nk=3\n"},
      {"[s]", "[s]\r\nk=v\r\n"},
      {"[s]\na=1", "[s]\na=1\r\nk=v\r\n"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(ProfileWithValue(each.before, "s", "k", "  v"), each.after) << each.before;
  }
}

TEST(ProfileText, ByteOrderMarksAreDecoded) {
  using namespace std::string_literals;
  EXPECT_EQ(ProfileBytes("\xEF\xBB\xBF\xC3\xA5=\xE2\x82\xAC"), "\xE5=\x80");
  EXPECT_EQ(ProfileBytes("\xFF\xFE\xE5\0=\0\xAC\x20"s), "\xE5=\x80");
}

TEST(FileProfile, AFailedReadNeverLeadsToAWrite) {
  test::MemoryFiles files;
  FileProfile profile(files, "ini");
  files.files["ini"] = "[s]\nk=1\n";
  files.failReads = FileError::Reason::Denied;
  EXPECT_TRUE(profile.WriteIni("s", "k", "2"));
  EXPECT_EQ(files.files["ini"], "[s]\nk=1\n");
  files.failReads.reset();
  EXPECT_TRUE(profile.WriteIni("s", "k", "a\nb"));
  EXPECT_FALSE(profile.WriteIni("s", "k", " 2 "));
  EXPECT_EQ(profile.ReadIni("s", "k", ""), "2");
}

}  // namespace
}  // namespace zek
