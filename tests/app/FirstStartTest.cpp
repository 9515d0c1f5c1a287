#include <gtest/gtest.h>

#include "app/FirstStart.h"
#include "app/StartSession.h"
#include "support/TestSession.h"

namespace zek {
namespace {

TEST(FirstStart, OffersAnOlderFolder) {
  const std::string asked = "q? T1312\r\n\r\nT1313";
  const struct {
    std::deque<test::PreparedAnswer> answers;
    std::vector<std::string> chosen;
    bool full;
    std::vector<std::string> shown;
    std::string settings;
    bool another = false;  // program gives the folder settings meanwhile
  } cases[] = {
      {{false}, {}, false, {asked}, "shipped"},
      {{true}, {"/old/"}, false, {asked, "i T1315"}, "old"},
      {{true, true, false},
       {"", "/none/"},
       false,
       {asked, asked, "x T501\r\n\r\nT1317", asked},
       "shipped"},
      {{true, Answer::Cancel}, {""}, false, {asked, asked}, ""},
      {{}, {}, true, {"x T501\r\n\r\nT1311"}, ""},
      {{true, false}, {""}, false, {asked, asked}, "another's", true},
  };
  for (const auto& each : cases) {
    test::MemoryFiles files;
    files.files = {{"/bin/ZEKView.INI", "shipped"}, {"/old/ZEKView.INI", "old"}};
    if (each.full) files.failWrites = FileError::Reason::Full;
    test::ScriptedPrompts prompts;
    prompts.answers = each.answers;
    LanguageTexts texts;
    texts.Read("501=T501\n1311=T1311\n1312=T1312\n1313=T1313\n1315=T1315\n1317=T1317\n");
    std::size_t next = 0;
    const bool ready =
        PrepareDataFolder(files, {"/data/", "/bin/", "", false}, {texts, prompts}, [&] {
          if (each.another) files.files["/data/ZEKView.INI"] = "another's";
          return each.chosen.at(next++);
        });
    EXPECT_EQ(ready, !each.settings.empty());
    EXPECT_EQ(prompts.shown, each.shown);
    EXPECT_EQ(files.files["/data/ZEKView.INI"], each.settings);
  }
}

TEST(FirstStart, LanguagesAreSoughtBesideTheProgramToo) {
  test::TestSession session("Language=044\r\n");
  session.files.files["/bin/ZEK_LANG.044"] = "0=English\r\n1=shipped";
  EXPECT_FALSE(LoadLanguage(session.proc));
  session.proc.settings.ShippedPath = "/bin/";
  EXPECT_TRUE(LoadLanguage(session.proc));
  EXPECT_EQ(session.proc.Text(1), "shipped");
  session.files.files["/zek/zek_lang.044"] = "0=Own\r\n1=own";
  EXPECT_TRUE(LoadLanguage(session.proc));
  EXPECT_EQ(session.proc.Text(1), "own");
  EXPECT_EQ(LanguagesOf(session.proc).size(), 1U);
}

}  // namespace
}  // namespace zek
