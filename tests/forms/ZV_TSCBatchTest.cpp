#include <gtest/gtest.h>

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "forms/browser/ZV_TSC.h"
#include "system/Paths.h"

namespace zek::window {
namespace {

using namespace browser;

wxFrame& Browser() { return dynamic_cast<wxFrame&>(*Shown("ZV_TSC")); }

bool IsReady() { return IsActive("ZV_TSC") && HasFocus("TreeView"); }

bool SummaryIsUp() {
  return IsActive("ZV_TSCSummary") &&
         wxWindow::FindWindowById(wxID_OK, Shown("ZV_TSCSummary"))->HasFocus();
}

bool HasFocusOnCancel() { return wxWindow::FindWindowById(wxID_CANCEL, &Browser())->HasFocus(); }

void StartBatch() { Command(Browser(), wxEVT_MENU, Menu_Batch_Run); }

struct BatchTest : testing::Test {
  void Run(std::vector<Step> steps) {
    Play(std::move(steps));
    ShowBrowser(nullptr, world.session, world.turn);
  }

  // The export files and reports, by the first three letters of their names.
  std::vector<std::string> Files() const {
    std::vector<std::string> kinds;
    for (const std::string& name : world.files.List(world.directory + "Batch"))
      kinds.push_back(name.substr(0, 3));
    return kinds;
  }

  // A batch waits for a controller that does not answer.
  std::function<bool()> waits = [this] {
    return world.session.batch.IsRunning() && world.session.status.Busy > 0 &&
           wxWindow::FindWindowById(wxID_CANCEL, &Browser())->IsShownOnScreen();
  };

  PlantWorld world;
};

TEST_F(BatchTest, ExportsFromTheMenuAndSaysWhatCameOfIt) {
  Run({{IsReady,
        [] {
          EXPECT_TRUE(Browser().GetMenuBar()->IsChecked(Menu_Batch_GetSDC));
          Command(Browser(), wxEVT_MENU, Menu_Batch_GetSDC);
          Pump(20);
          StartBatch();
        }},
       {SummaryIsUp,
        [this] {
          EXPECT_NE(Value("Text_Details").find(WithSeparator(world.directory + "Batch") + "WDC"),
                    std::string::npos);
          EXPECT_EQ(Browser().GetStatusBar()->GetStatusText(1), "Batch avslutad");
          EXPECT_EQ(Files(), (std::vector<std::string>{"OVC", "WDC"}));
          Press(WXK_RETURN);
        }},
       {IsReady, [] {
          EXPECT_TRUE(Browser().GetMenuBar()->IsEnabledTop(2));
          EXPECT_FALSE(Shown("Gauge_Batch"));
          Press(WXK_ESCAPE);
        }}});
  EXPECT_TRUE(world.session.batch.Succeeded);
  EXPECT_TRUE(world.prompts.shown.empty());
}

TEST_F(BatchTest, NothingCheckedCannotBeStarted) {
  Run({{IsReady, [] {
          for (const int id : {Menu_Batch_GetWDC, Menu_Batch_GetSDC, Menu_Batch_GetOVC})
            Command(Browser(), wxEVT_MENU, id);
          EXPECT_TRUE(PumpUntil([] { return !Browser().GetMenuBar()->IsEnabled(Menu_Batch_Run); }));
          Command(Browser(), wxEVT_MENU, Menu_Batch_GetOVC);
          EXPECT_TRUE(PumpUntil([] { return Browser().GetMenuBar()->IsEnabled(Menu_Batch_Run); }));
          Press(WXK_ESCAPE);
        }}});
}

TEST_F(BatchTest, IsCancelledByMouseWhileAControllerIsDead) {
  world.plantLink.silent = true;
  Run({{IsReady, StartBatch},
       {waits,
        [] {
          for (std::size_t menu = 0; menu < 3; ++menu)
            EXPECT_FALSE(Browser().GetMenuBar()->IsEnabledTop(menu));
          EXPECT_TRUE(Shown("Gauge_Batch"));
          Click(*wxWindow::FindWindowById(wxID_CANCEL, &Browser()));
        }},
       {SummaryIsUp, [] { Press(WXK_RETURN); }},
       {IsReady, [] { Command(Browser(), wxEVT_MENU, Menu_GetSDC); }},
       {[this] { return world.session.status.Busy > 0; },
        [] { EXPECT_TRUE(wxWindow::FindWindowById(wxID_CANCEL, &Browser())->IsEnabled()); }},
       {[] { return HasFocusOnCancel(); }, [] { Press(WXK_ESCAPE); }},
       {IsReady, [] { Press(WXK_ESCAPE); }}});
  EXPECT_EQ(Files(), (std::vector<std::string>{"OVC", "SDC", "WDC"})) << "what there is is kept";
  EXPECT_FALSE(world.session.batch.Succeeded);
}

TEST_F(BatchTest, AWishToCloseEndsItFirst) {
  world.plantLink.silent = true;
  Run({{IsReady, StartBatch},
       {waits, [] { EXPECT_FALSE(Browser().Close()); }},
       {SummaryIsUp, [] { Press(WXK_RETURN); }}});
  EXPECT_FALSE(world.session.batch.IsRunning());
  EXPECT_EQ(Files().size(), 3U);
}

TEST_F(BatchTest, RunsAndClosesByItselfWithTheBatchSwitch) {
  world.session.settings.BatchMode = true;
  Run({});
  EXPECT_TRUE(world.session.batch.Succeeded);
  EXPECT_EQ(Files(), (std::vector<std::string>{"BAT", "OVC", "SDC", "WDC"}));
  EXPECT_TRUE(world.prompts.shown.empty());
}

// The end of the user's session asks nobody.
TEST_F(BatchTest, AFormThatIsClosedByForceLeavesABatchThatIsWhole) {
  world.plantLink.silent = true;
  Run({{IsReady, StartBatch}, {waits, [] { Browser().Close(true); }}});
  EXPECT_FALSE(world.session.batch.IsRunning());
  Pump(100);
  EXPECT_EQ(Files().size(), 3U);
}

}  // namespace
}  // namespace zek::window
