#include <gtest/gtest.h>

#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

TEST(Fields, GetFieldCountsFromZero) {
  EXPECT_EQ(GetField("a!b!c", 0, "!"), "a");
  EXPECT_EQ(GetField("a!b!c", 2, "!"), "c");
  EXPECT_EQ(GetField("a!b!c", 3, "!"), "");
  EXPECT_EQ(GetField("", 0, "!"), "");
  EXPECT_EQ(GetField("a!!c", 1, "!"), "");
  EXPECT_EQ(GetField("a.b..c", 1, ".."), "c");
}

TEST(Fields, EmptySeparatorMeansTabOrSemicolon) {
  EXPECT_EQ(GetField("a;b\tc", 1, ""), "c");
  EXPECT_EQ(GetField("a;b", 1, ""), "b");
}

TEST(Fields, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b "), "a b");
  EXPECT_EQ(Trim("\ta "), "\ta");
  EXPECT_EQ(Trim("   "), "");
}

TEST(Fields, UpperCaseKnowsSwedish) {
  EXPECT_EQ(UpperCase("\xE5\xE4\xF6 \xE9\xFF\xF7x"), "\xC5\xC4\xD6 \xC9\x9F\xF7X");
  // The letters at the ends of each block, and their neighbours, which are not letters.
  EXPECT_EQ(UpperCase("`az{\xDF\xE0\xF6\xF7\xF8\xFE\x99\x9A\x9B\x9C\x9D\x9E"),
            "`AZ{\xDF\xC0\xD6\xF7\xD8\xDE\x99\x8A\x9B\x8C\x9D\x8E");
  EXPECT_TRUE(EqualNoCase("skåne"_w1252, "SKÅNE"_w1252));
  EXPECT_FALSE(EqualNoCase("skane", "skåne"_w1252));
}

TEST(Windows1252, GoesToUnicodeAndBack) {
  std::string all;
  for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
  EXPECT_EQ(Windows1252FromUtf8(Utf8FromWindows1252(all)), all);
  EXPECT_EQ(Utf8FromWindows1252("\x80"), "\xE2\x82\xAC");
  EXPECT_EQ(Windows1252FromUtf8("\xC3\xA5\xE4\xB8\xAD\xFF"), "\xE5??");
  EXPECT_EQ(Windows1252FromUtf8("\xC3"), "?");
  EXPECT_FALSE(FitsWindows1252("\xE4\xB8\xAD"));
  EXPECT_EQ("Öppna"_w1252, "\xD6ppna");
}

}  // namespace
}  // namespace zek
