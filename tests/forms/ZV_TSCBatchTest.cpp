#include <gtest/gtest.h>

#include <wx/menu.h>
#include <wx/statusbr.h>

#include "BrowserFixture.h"
#include "system/Paths.h"

namespace zek::window {
namespace {

using namespace browser;

bool SummaryIsUp() {
  return IsActive("ZV_TSCSummary") &&
         wxWindow::FindWindowById(wxID_OK, Shown("ZV_TSCSummary"))->HasFocus();
}

void StartBatch() { Command(Browser(), wxEVT_MENU, Menu_Batch_Run); }

struct BatchTest : BrowserFixture {
  // The export files and reports, by the first three letters of their names.
  std::vector<std::string> Files() const {
    std::vector<std::string> kinds;
    for (const std::string& name : world.files.List(world.directory + "Batch"))
      kinds.push_back(name.substr(0, 3));
    return kinds;
  }

  // A batch waits for a controller that does not answer.
  std::function<bool()> waits = [this] { return world.session.batch.IsRunning() && CanCancel(); };
};

TEST_F(BatchTest, ExportsFromTheMenuAndSaysWhatCameOfIt) {
  Run({{InBrowser,
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
          EXPECT_EQ(Browser().GetStatusBar()->GetStatusText(1), "Export avslutad");
          EXPECT_EQ(Files(), (std::vector<std::string>{"OVC", "WDC"}));
          Press(WXK_RETURN);
        }},
       {InBrowser, [] {
          EXPECT_TRUE(Browser().GetMenuBar()->IsEnabledTop(2));
          EXPECT_FALSE(Shown("Gauge_Batch"));
          Escape();
        }}});
  EXPECT_TRUE(world.session.batch.Succeeded);
  EXPECT_TRUE(world.prompts.shown.empty());
}

TEST_F(BatchTest, NothingCheckedCannotBeStarted) {
  Run({{InBrowser, [] {
          for (const int id : {Menu_Batch_GetWDC, Menu_Batch_GetSDC, Menu_Batch_GetOVC})
            Command(Browser(), wxEVT_MENU, id);
          EXPECT_TRUE(PumpUntil([] { return !Browser().GetMenuBar()->IsEnabled(Menu_Batch_Run); }));
          Command(Browser(), wxEVT_MENU, Menu_Batch_GetOVC);
          EXPECT_TRUE(PumpUntil([] { return Browser().GetMenuBar()->IsEnabled(Menu_Batch_Run); }));
          Escape();
        }}});
}

TEST_F(BatchTest, IsCancelledByMouseWhileAControllerIsDead) {
  world.link.silent = true;
  Run({{InBrowser, StartBatch},
       {waits,
        [] {
          for (std::size_t menu = 0; menu < 3; ++menu)
            EXPECT_FALSE(Browser().GetMenuBar()->IsEnabledTop(menu));
          EXPECT_TRUE(Shown("Gauge_Batch"));
          Click(CancelOfBrowser());
        }},
       {SummaryIsUp, [] { Press(WXK_RETURN); }},
       {InBrowser, [] { Command(Browser(), wxEVT_MENU, Menu_GetSDC); }},
       {[this] { return world.session.status.Busy > 0; },
        [] { EXPECT_TRUE(CancelOfBrowser().IsEnabled()); }},
       {[] { return CancelOfBrowser().HasFocus(); }, Escape},
       {InBrowser, Escape}});
  EXPECT_EQ(Files(), (std::vector<std::string>{"OVC", "SDC", "WDC"})) << "what there is is kept";
  EXPECT_FALSE(world.session.batch.Succeeded);
}

TEST_F(BatchTest, AWishToCloseEndsItFirst) {
  world.link.silent = true;
  Run({{InBrowser, StartBatch},
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

// The end of the user's session shows no question.
TEST_F(BatchTest, AFormThatIsClosedByForceLeavesABatchThatIsWhole) {
  world.link.silent = true;
  Run({{InBrowser, StartBatch}, {waits, [] { Browser().Close(true); }}});
  EXPECT_FALSE(world.session.batch.IsRunning());
  Pump(100);
  EXPECT_EQ(Files().size(), 3U);
}

}  // namespace
}  // namespace zek::window
