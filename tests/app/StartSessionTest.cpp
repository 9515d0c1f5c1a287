#include <gtest/gtest.h>

#include "app/StartSession.h"
#include "lang/TextNumbers.h"
#include "support/TestSession.h"
#include "system/Paths.h"

namespace zek {
namespace {

TEST(StartSession, SaysWhatItDidNotFind) {
  const struct {
    const char* switches = "";
    const char* lost = "";   // a file
    const char* fault = "";  // of the tag object
    bool unreadable = false;
    std::vector<std::string> shown = {};
  } cases[] = {
      {.switches = "x/LOCALE /TOPIC:A --dir", .shown = {"x T853"}},
      {.switches = "/LOCALE -x"},
      {.lost = "/ini/ZEKView.INI", .shown = {"x T852"}},
      {.unreadable = true, .shown = {"c T501"}},
      {.fault = "CTAPIX.CTAPI: (800401F3)", .shown = {"n T58\r\n\r\nCTAPIX.CTAPI: (800401F3)"}},
      {.fault = "(80040154)",
       .shown = {sizeof(void*) == 8 ? "n T58\r\n\r\n(80040154)\r\n\r\nT854"
                                    : "n T58\r\n\r\n(80040154)"}},
  };
  for (const auto& each : cases) {
    test::TestSession session("TagMode=YES\r\n");
    session.files.files.erase(each.lost);
    session.prompts.shown.clear();
    session.tags.fault = each.fault;
    if (each.unreadable) session.files.failReads = FileError::Reason::Denied;
    session.tags.exists = session.tags.fault.empty();
    StartOptions options;
    options.switches = each.switches;
    options.chooseLanguage = [] { return true; };
    const auto ended = StartSession(session.proc, options);
    EXPECT_EQ(session.prompts.shown, each.shown) << each.switches << each.lost << each.fault;
    EXPECT_EQ(ended.has_value(), each.unreadable || !session.tags.exists);
  }
}

TEST(StartSession, ToldOfThePasswordAndOfCrashesOnce) {
  const std::string folder = WithSeparator("/zek/Crashes");
  const struct {
    const char* general;
    int reports;         // of crashes
    std::int32_t shown;  // at the first start
    std::int32_t logged;
  } cases[] = {
      {"", 0, 0, 0},
      {"Password=hemligt\r\n", 0, 0, text::kTagPasswordPlain},
      {"Password={dpapi}AAAA\r\n", 0, text::kTagPasswordLost, 0},
      {"", 12, text::kCrashed, text::kCrashed},
  };
  for (const auto& each : cases) {
    test::TestSession session(std::string("TagMode=YES\r\n") + each.general);
    for (int i = 10; i < 10 + each.reports; ++i)
      session.files.files[folder + std::to_string(i) + ".txt"] = "x";
    session.prompts.shown.clear();
    StartOptions options;
    options.chooseLanguage = [] { return true; };
    {  // a start that nobody sees
      LogPrompts nobody([](const std::string&) {});
      const PromptsInstead instead(session.proc.prompts, nobody);
      ASSERT_FALSE(StartSession(session.proc, options).has_value());
      session.proc.log.Replace({});
    }
    for (const bool first : {true, false}) {
      ASSERT_FALSE(StartSession(session.proc, options).has_value());
      const bool told = first || each.reports == 0;
      const auto beginning = [&](std::int32_t number) {
        return told && number != 0 ? session.proc.Text(number).substr(0, 30) : "";
      };
      const std::string shown = session.prompts.shown.empty() ? "x " : session.prompts.shown[0];
      EXPECT_EQ(shown.substr(2, 30), beginning(each.shown));
      const std::vector<std::string> log = session.proc.log.Lines();
      EXPECT_EQ(log.empty() ? "" : log[0].substr(0, 30), beginning(each.logged));
      EXPECT_LE(session.prompts.shown.size() + log.size(), 2U);
      session.prompts.shown.clear();
      session.proc.log.Replace({});
    }
    EXPECT_EQ(session.files.files.contains(folder + "11.txt"), false);
    EXPECT_EQ(session.files.files.contains(folder + "12.txt"), each.reports > 0);
  }
}

}  // namespace
}  // namespace zek
