#include <gtest/gtest.h>

#include "app/StartSession.h"
#include "support/TestSession.h"

namespace zek {
namespace {

TEST(StartSession, SaysWhatItDidNotFind) {
  const struct {
    const char* switches = "";
    const char* lost = "";   // a file
    const char* fault = "";  // of the tag object
    std::vector<std::string> shown = {};
  } cases[] = {
      {.switches = "x/LOCALE /TOPIC:A --dir", .shown = {"x T853"}},
      {.switches = "/LOCALE -x"},
      {.lost = "/ini/ZEKView.INI", .shown = {"x T852"}},
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
    session.tags.exists = session.tags.fault.empty();
    StartOptions options;
    options.switches = each.switches;
    options.chooseLanguage = [] { return true; };
    const auto ended = StartSession(session.proc, options);
    EXPECT_EQ(session.prompts.shown, each.shown) << each.switches << each.lost << each.fault;
    EXPECT_EQ(ended.has_value(), !session.tags.exists);
  }
}

}  // namespace
}  // namespace zek
