#include <gtest/gtest.h>

#include "settings/FileProfile.h"
#include "settings/ProfileEncoding.h"
#include "support/MemoryFiles.h"

namespace zek {
namespace {

using namespace std::string_literals;

TEST(ProfileEncoding, WritesAndKeepsEveryOtherByte) {
  struct {
    std::string before;
    std::string after;
  } const cases[] = {
      {"", "[s]\r\nk=v\xE5\r\n"},
      {"x=1", "x=1\r\n[s]\r\nk=v\xE5\r\n"},
      {"[S]\n K = old\nK=2\n", "[S]\nk=v\xE5\r\nK=2\n"},
      {"; c\n[s]\na=1\n\n\n[t]\nk=3\n", "; c\n[s]\na=1\nk=v\xE5\r\n\n\n[t]\nk=3\n"},
      {"[s]", "[s]\r\nk=v\xE5\r\n"},
      {"[s]\na=1", "[s]\na=1\r\nk=v\xE5\r\n"},
      {"\xC3\n[s]\nk=1\n\xE4\r", "\xC3\n[s]\nk=v\xE5\r\n\xE4\r"},
      {"\xC3\xA5\xE2\x86\x92\n[s]\nk=\xC3\xA4\n;\xE2\x86\x92",
       "\xC3\xA5\xE2\x86\x92\n[s]\nk=v\xC3\xA5\r\n;\xE2\x86\x92"},
      {"\xEF\xBB\xBF[s]\nk=1\n\xE4", "\xEF\xBB\xBF[s]\nk=v\xC3\xA5\r\n\xE4"},
      {"\xFF\xFE[\0s\0]\0\n\0k\0\n\0\x92\x21"s,
       "\xFF\xFE[\0s\0]\0\n\0k\0=\0v\0\xE5\0\r\0\n\0\x92\x21"s},
  };
  for (const auto& each : cases) {
    const std::string after =
        ProfileEncoding(each.before).WithValue(each.before, "s", "k", "  v\xE5");
    EXPECT_EQ(after, each.after) << each.before;
    EXPECT_NE(ProfileEncoding(after).Decoded(after).find("k=v\xE5"), std::string::npos) << after;
  }
}

TEST(ProfileEncoding, RemovesALineAndNothingElse) {
  const std::pair<std::string, std::string> cases[] = {
      {"[S]\n K = old\nk=2\r\n\n[t]\nk=3", "[S]\nk=2\r\n\n[t]\nk=3"},
      {"; c\n[s]\na=1\n[t]\nk=3", "; c\n[s]\na=1\n[t]\nk=3"},
      {"\xFF\xFE[\0s\0]\0\n\0k\0=\0\n\0\x92\x21"s, "\xFF\xFE[\0s\0]\0\n\0\x92\x21"s},
  };
  for (const auto& [before, after] : cases)
    EXPECT_EQ(ProfileEncoding(before).WithValue(before, "s", "k", std::nullopt), after);
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
