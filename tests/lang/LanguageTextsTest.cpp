#include <gtest/gtest.h>

#include "app/StartSession.h"
#include "lang/LanguageTexts.h"
#include "lang/Messages.h"
#include "support/TestSession.h"

namespace zek {
namespace {

TEST(LanguageTexts, ReadsLines) {
  LanguageTexts texts;
  texts.Read(
      "0=Svenska\r\ncomment\n12=Spara=Save\n 13 =\n12=second\n-1=x\n600x=y\n"
      "2147483647=last\n2147483648=none");
  EXPECT_EQ(texts.Text(2147483647), "last");
  EXPECT_EQ(texts.Text(-2147483647 - 1), "Invalid Text (-2147483648)") << "none is beyond";
  EXPECT_EQ(texts.Text(12), "Spara");
  EXPECT_EQ(texts.Text(13), "");
  EXPECT_EQ(texts.Text(600), "y");
  EXPECT_EQ(texts.Text(-1), "Invalid Text (-1)");
  EXPECT_EQ(texts.Text(9999), "Invalid Text (9999)");
  EXPECT_EQ(texts.Text(503), "\xE5tkomst nekad.") << "a text that is built in";
  texts.Read("");
  EXPECT_EQ(texts.Text(12), "Invalid Text (12)");
}

TEST(LanguageTexts, ListsWhatItCanName) {
  test::MemoryFiles files;
  files.files = {{"/p/zek_lang.046", "1=x\r\n0=\r\n0=Svenska\r\n"},
                 {"/p/ZEK_LANG.044", "0=English"},
                 {"/p/zek_lang.ENG", "0=no number"},
                 {"/p/zek_lang.047", "1=unnamed"},
                 {"/p/zek_lang.0461", "0=too long"},
                 {"/p/other.046", "0=other"}};
  const auto choices = ListLanguages(files, "/p/");
  ASSERT_EQ(choices.size(), 2U);
  EXPECT_EQ(choices[0].number, 44);
  EXPECT_EQ(choices[1].name, "Svenska");
  EXPECT_EQ(LanguageFileName(46), "zek_lang.046");
}

TEST(LanguageTexts, TheSettingNamesTheFile) {
  test::TestSession session("Language=046\r\n");
  session.files.files["/zek/zek_lang.046"] = "1=one";
  EXPECT_TRUE(LoadLanguage(session.proc));
  EXPECT_EQ(session.proc.Text(1), "one");
  test::TestSession capitals("Language=046\r\n");
  capitals.files.files["/zek/ZEK_LANG.046"] = "1=one";
  EXPECT_TRUE(LoadLanguage(capitals.proc));
  test::TestSession evil("Language=../secret\r\n");
  evil.files.files["/zek/zek_lang.../secret"] = "1=one";
  EXPECT_FALSE(LoadLanguage(evil.proc));
}

TEST(Message, FillsItsPlaces) {
  EXPECT_EQ(Message("%2-%1-%3 100%", {"a", "b"}), "b-a-%3 100%");
  EXPECT_EQ(Message("%1", {"%2", "x"}), "%2");
}

}  // namespace
}  // namespace zek
