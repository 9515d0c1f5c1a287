#include <gtest/gtest.h>

#include "app/FileProfile.h"
#include "app/ProfileText.h"
#include "support/MemoryFiles.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

// What the platform's own calls answer for one settings file; the reader here agrees with them.
constexpr const char* kFile =
    "before=1\r\n"
    "[Q]\n"
    "a=\"q\"\nb='q'\nc=\"open\nd='mix\"\ne=\"\nf=\"\"dd\"\"\ng=\"a\" b\nh= \"  in  \" \n"
    "i=\xE5\x80\x81\xFF\xA0\nj=a=b=c\n  Key = 1\t\nKEY=2\nempty=\nnoeq\nl=v ; tail\n;c=x\r"
    "[x] text\nk=x\n  [z]\nk=z\n[ sp ]\nk=sp\n[b]b]\nk=b\n[y\nlost=1\n[Q]\nonly=2\n[last]\nk=end";

TEST(ProfileText, ReadsValuesAsThePlatformDoes) {
  struct {
    const char* section;
    const char* key;
    const char* value;
  } const cases[] = {
      {"Q", "a", "q"},         {"q", "B", "q"},        {"Q", "c", "\"open"},
      {"Q", "d", "'mix\""},    {"Q", "e", "\""},       {"Q", "f", "\"dd\""},
      {"Q", "g", "\"a\" b"},   {"Q", "h", "  in  "},   {"Q", "i", "\xE5\x80\x81\xFF\xA0"},
      {"Q", "j", "a=b=c"},     {"Q", "key", "1"},      {"Q", "empty", ""},
      {"Q", "noeq", "(none)"}, {"Q", "l", "v ; tail"}, {"Q", ";c", "x"},
      {"x", "k", "x"},         {"z", "k", "z"},        {"sp", "k", "sp"},
      {"b]b", "k", "b"},       {"b]b", "lost", "1"},   {"Q", "only", "(none)"},
      {"last", "k", "end"},    {"nix", "k", "(none)"}, {"", "before", "(none)"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(ProfileValue(kFile, each.section, each.key).value_or("(none)"), each.value)
        << each.section << " " << each.key;
  }
}

TEST(ProfileText, ReadsSectionsIntoTheirBuffer) {
  const std::string file = "[s]\n a = \"1\" \n\nnoeq\n;c=1\n #x=2\n=v\n= \n[t]\nabc=def\n";
  EXPECT_EQ(ProfileSectionText(file, "s", 100).entries, (Lines{"a=\"1\"", "noeq", "#x=2", "=v"}));
  const std::pair<std::size_t, std::size_t> lengths[] = {{8, 6}, {9, 7}, {10, 8}, {11, 8}};
  for (const auto& [size, length] : lengths) {
    EXPECT_EQ(ProfileSectionText(file, "t", size).length, length) << size;
  }
  EXPECT_EQ(ProfileSectionText(file, "t", 8).entries, Lines{"abc=de"});
  EXPECT_FALSE(ProfileSectionText(file, "t", 11).cut);
  EXPECT_TRUE(ProfileSectionText(file, "nix", 8).entries.empty());
}

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

TEST(FileProfile, CutsValuesAndTrimsDefaults) {
  test::MemoryFiles files;
  FileProfile profile(files, "ini");
  EXPECT_EQ(profile.ReadIni("s", "k", "  def  "), "  def");
  files.files["ini"] =
      "[s]\nk=" + std::string(300, 'x') + "\nq=\"" + std::string(127, 'y') + "\"\n";
  EXPECT_EQ(profile.ReadIni("s", "k", "").size(), 127U);
  EXPECT_EQ(profile.ReadIni("s", "q", "").size(), 127U);
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
