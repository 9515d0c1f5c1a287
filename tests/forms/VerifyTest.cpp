#include <gtest/gtest.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "forms/browser/ZV_TSC.h"
#include "lang/TextNumbers.h"

namespace zek::window {
namespace {

bool InBrowser() { return IsActive("ZV_TSC") && HasFocus("TreeView"); }
bool InEditor() { return IsActive("ZV_WDC") && HasFocus("Text_Start0"); }

struct VerifyTest : testing::Test {
  VerifyTest() {
    world.session.settings.VerifyAfterWrite = true;
    world.prompts.answers = {true, false, true};  // send; don't try again; close all the same
  }

  // Changes the first start time and saves; `then` is what is done in the editor afterwards.
  void Save(const std::vector<Step>& then) {
    std::vector<Step> steps = {{InBrowser,
                                [] {
                                  Press(WXK_DOWN);
                                  Press(WXK_RETURN);
                                }},
                               {InEditor, [] {
                                  Type("8");
                                  Press('S', wxMOD_CONTROL);
                                }}};
    steps.insert(steps.end(), then.begin(), then.end());
    steps.push_back({InBrowser, Escape});
    Play(std::move(steps));
    ShowBrowser(nullptr, world.session, world.turn);
  }

  PlantWorld world;
};

TEST_F(VerifyTest, AWriteIsVerifiedAndSaysSo) {
  Save({});
  ASSERT_EQ(world.prompts.shown.size(), 2U);
  EXPECT_EQ(world.prompts.shown[1], world.session.Text(text::kVerified));
}

// The controller has the catalogue by then, so that nothing is half when the wait is over.
TEST_F(VerifyTest, EscapeEndsAVerificationThatGetsNoAnswer) {
  ASSERT_FALSE(world.profile.WriteIni("GetDelay", "DelayA", "1"));
  Save({{[this] {
           const wxWindow* const editor = Shown("ZV_WDC");
           return world.IsVerifying() && editor != nullptr &&
                  wxWindow::FindWindowById(wxID_CANCEL, editor)->HasFocus();
         },
         [this] {
           world.plantLink.silent = true;
           Escape();
         }},
        {[this] { return world.prompts.shown.size() == 3 && InEditor(); }, Escape}});
  ASSERT_EQ(world.prompts.shown.size(), 4U);
  EXPECT_EQ(world.prompts.shown[1], world.session.Text(text::kVerifyStopped));
  EXPECT_NE(world.plant.outstations[0].weekday.lines.at(1000).find("!08:00..16:30"),
            std::string::npos);
}

}  // namespace
}  // namespace zek::window
