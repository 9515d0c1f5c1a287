#include <gtest/gtest.h>

#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/listctrl.h>
#include <wx/menu.h>
#include <wx/modalhook.h>
#include <wx/statusbr.h>

#include "BrowserFixture.h"

namespace zek::window {
namespace {

using namespace browser;

void Select(const std::string& tsc) {
  wxTreeItemIdValue cookie = nullptr;
  wxTreeCtrl& tree = Tree();
  tree.ExpandAll();
  for (wxTreeItemId item = tree.GetFirstChild(tree.GetRootItem(), cookie); item.IsOk();
       item = tree.GetNextVisible(item)) {
    if (tree.GetItemText(item).EndsWith(tsc)) return tree.SelectItem(item);
  }
  ADD_FAILURE() << tsc;
}

using BrowserTest = BrowserFixture;

TEST_F(BrowserTest, OpensOnTheStartTopicAndClosesWithEscape) {
  world.session.settings.StartTopic = "KONTOR";
  int changes = 0;
  world.session.status.Changed = [&changes] { ++changes; };
  Run({{InBrowser, [this] {
          EXPECT_TRUE(Tree().GetItemText(Tree().GetSelection()).EndsWith("KONTOR]"));
          EXPECT_TRUE(Tree().IsExpanded(Tree().GetSelection()));
          world.session.status.SetWaiting("x");
          Escape();
        }}});
  world.session.status.Changed();
  EXPECT_EQ(changes, 2);  // the main window received every change
}

TEST_F(BrowserTest, MenuItemsFollowTheSelection) {
  struct Case {
    const char* node;
    bool get;
    bool eraseWdc;
    bool eraseSdc;
  };
  EXPECT_FALSE(world.files.Write(world.directory + "PLANT_5100_3 Kontoret TF2.TXT", "x"));
  EXPECT_FALSE(world.files.Write(world.directory + "PLANT_5100 Bj\xC3\xB6rkskolan SDC.TXT", "x"));
  Run({{InBrowser, [] {
          const wxMenuBar& bar = *Browser().GetMenuBar();
          for (const Case& each : {Case{"SKOLA]", true, false, true},
                                   {"KONTOR]", false, false, false},
                                   {"[AHU1]", true, false, true},
                                   {"[TF2]", true, true, false}}) {
            Select(each.node);
            EXPECT_EQ(bar.IsEnabled(Menu_GetWDC), each.get) << each.node;
            EXPECT_EQ(bar.IsEnabled(Menu_EraseWDC), each.eraseWdc) << each.node;
            EXPECT_EQ(bar.IsEnabled(Menu_EraseSDC), each.eraseSdc) << each.node;
          }
          Escape();
        }}});
}

// By keys alone; the list also follows the tree, in both of its views.
TEST_F(BrowserTest, ASearchFindsANodeOfAnyObject) {
  const auto list = [] { return dynamic_cast<wxListCtrl*>(Shown("List_Nodes")); };
  const auto selected = [] { return Tree().GetItemText(Tree().GetSelection()); };
  Run({{InBrowser, [&] {
          EXPECT_EQ(list()->GetItemCount(), 3);
          Press('F', wxMOD_CONTROL);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Text_Search"); }));
          Type("kontoret till");
          EXPECT_TRUE(PumpUntil([&] { return selected().EndsWith("[TF2]"); }));
          EXPECT_EQ(list()->GetItemCount(), 1);
          Press(WXK_RETURN);
          EXPECT_TRUE(PumpUntil([] { return HasFocus("List_Nodes"); }));
          Press('2', wxMOD_ALT);
          EXPECT_TRUE(PumpUntil([&] { return list()->GetSortIndicator() == 1; }));
          Reach("TreeView", Escape);
          Press('2', wxMOD_CONTROL);
          EXPECT_TRUE(PumpUntil([&] { return selected().StartsWith("Till"); }));
          EXPECT_EQ(list()->GetItemCount(), 2);
          Press('1', wxMOD_CONTROL);
          EXPECT_TRUE(PumpUntil([&] { return selected().StartsWith("Kontoret/"); }));
          Escape();
        }}});
}

// From the list of the plant by keys, from that of the editor by mouse.
TEST_F(BrowserTest, AFindingLeadsToItsPlace) {
  auto& line = world.plant.outstations[0].weekday.lines.at(1000);
  line.replace(line.find("MO..FR"), 6, "WE..FR");
  world.Select("SKOLA/AHU1");
  world.Get(Catalogue::Wdc);
  const auto list = [] { return dynamic_cast<wxListView*>(Shown("List_Findings")); };
  const auto inList = [&] { return IsActive("ZV_Findings") && list()->GetItemCount() > 0; };
  const auto atPlace = [] { return IsActive("ZV_WDC") && HasFocus("Text_Start2"); };
  Run({{InBrowser, [] { Press('G', wxMOD_CONTROL); }},
       {inList, [] { Press(WXK_RETURN); }},
       {atPlace, [] { Click(Box("Text_Start3")); }},
       {[] { return HasFocus("Text_Start3"); }, [] { Click(*Shown("Command_Findings")); }},
       {inList,
        [&] {
          wxRect row;
          list()->GetItemRect(0, row);
          ClickAt(list()->ClientToScreen(row.GetPosition() + wxPoint(120, row.height / 2)));
          Click(*Shown("Command_GoTo"));
        }},
       {atPlace, [] { Escape(); }},
       {inList, [] { Escape(); }},
       {InBrowser, [] { Escape(); }}});
}

TEST_F(BrowserTest, EraseAsksFirst) {
  const std::string path = world.directory + "PLANT_5100_3 Kontoret TF2.TXT";
  EXPECT_FALSE(world.files.Write(path, "x"));
  world.prompts.answers = {false, true};
  Run({{InBrowser, [&] {
          Select("[TF2]");
          Press(WXK_DELETE);
          EXPECT_TRUE(PumpUntil([&] { return world.prompts.shown.size() == 1; }));
          EXPECT_TRUE(world.files.Exists(path));
          Press(WXK_DELETE);
          EXPECT_TRUE(PumpUntil([&] { return !world.files.Exists(path); }));
          EXPECT_FALSE(Browser().GetMenuBar()->IsEnabled(Menu_EraseWDC));
          Escape();
        }}});
}

// By key, by mouse, and a third time with a close request, which waits until the fetch has ended.
TEST_F(BrowserTest, AFetchCanBeCancelled) {
  world.link.silent = true;
  const auto canCancel = [this] { return CanCancel(); };
  const auto fetch = [] { Press(WXK_F5); };
  Run({{InBrowser, fetch},
       {canCancel,
        [] {
          EXPECT_FALSE(Tree().IsEnabled());
          EXPECT_FALSE(Browser().GetMenuBar()->IsEnabledTop(1));
          EXPECT_NE(Browser().GetStatusBar()->GetStatusText(1), "");
          Press(WXK_F5);  // the button takes keys from now on
          Escape();
        }},
       {InBrowser,
        [&] {
          EXPECT_TRUE(Browser().GetMenuBar()->IsEnabledTop(1));
          EXPECT_EQ(Browser().GetStatusBar()->GetStatusText(1), "");
          fetch();
        }},
       {canCancel, [] { Click(CancelOfBrowser()); }},
       {InBrowser, fetch},
       {canCancel, [] {
          EXPECT_FALSE(Browser().Close());
          EXPECT_TRUE(Shown("ZV_TSC"));
          Escape();
        }}});
  EXPECT_FALSE(test::CancelIsPending(world.session));
  EXPECT_TRUE(world.prompts.shown.empty());
}

TEST_F(BrowserTest, NothingIsErasedOrRestoredWhenOnlyViewing) {
  const std::string name = "PLANT_5100_3 Kontoret TF2";
  EXPECT_FALSE(world.files.Write(world.directory + name + ".TXT", "now\r\n"));
  EXPECT_FALSE(world.files.MakeDirectory(world.directory + "History"));
  EXPECT_FALSE(
      world.files.Write(world.directory + "History/" + name + " 20261121-083000.TXT", "then\r\n"));
  world.session.settings.ViewOnly = true;
  Run({{InBrowser,
        [] {
          Select("[TF2]");
          Press(WXK_DELETE);
          Pump(50);
          Press(WXK_F8);
        }},
       {[] { return IsActive("ZV_TSCHistory") && !Value("Text_Differences").empty(); },
        [] {
          EXPECT_FALSE(Shown("Command_Restore")->IsEnabled());
          Escape();
        }},
       {InBrowser, Escape}});
  EXPECT_TRUE(world.prompts.shown.empty());
}

// Cancels the system's box for a file, which does not show.
class NoFile final : public wxModalDialogHook {
 public:
  NoFile() { Register(); }
  int asked = 0;

 private:
  int Enter(wxDialog* dialog) override {
    if (dynamic_cast<wxFileDialog*>(dialog) == nullptr) return wxID_NONE;
    ++asked;
    return wxID_CANCEL;
  }
};

TEST_F(BrowserTest, AReportIsChosenByKeyboardAndByMouse) {
  NoFile file;
  for (const bool byMouse : {false, true}) {
    Run({{InBrowser,
          [] {
            Select("[AHU1]");
            Command(Browser(), wxEVT_MENU, Menu_Report);
          }},
         {[] { return IsActive("ZV_Report") && HasFocus("Choice_Node"); },
          [&file, byMouse] {
            const auto press = [byMouse](const char* name, const std::vector<int>& keys) {
              if (byMouse) return Click(*Shown(name));
              for (const int key : keys) Press(key);
            };
            press("Check_Fetch", {WXK_TAB, WXK_TAB, WXK_SPACE});
            EXPECT_TRUE(PumpUntil(
                [] { return dynamic_cast<const wxCheckBox&>(*Shown("Check_Fetch")).IsChecked(); }));
            press("Command_SaveReport", {WXK_RETURN});
            EXPECT_TRUE(PumpUntil([&] { return file.asked == (byMouse ? 2 : 1); }));
            Escape();
          }},
         {InBrowser, Escape}});
  }
}

TEST_F(BrowserTest, AnEarlierCopyIsRestoredFromTheHistory) {
  const std::string name = "PLANT_5100_3 Kontoret TF2";
  const std::string path = world.directory + name + ".TXT";
  EXPECT_FALSE(world.files.Write(path, "now\r\n"));
  EXPECT_FALSE(world.files.MakeDirectory(world.directory + "History"));
  EXPECT_FALSE(
      world.files.Write(world.directory + "History/" + name + " 20261121-083000.TXT", "then\r\n"));
  world.prompts.answers = {true};
  Run({{InBrowser,
        [] {
          Select("[TF2]");
          Press(WXK_F8);
        }},
       {[] { return IsActive("ZV_TSCHistory"); },
        [&] {
          EXPECT_EQ(Value("Text_Differences"), "- then\n+ now\n");
          Click(*Shown("Command_Restore"));
          EXPECT_TRUE(PumpUntil([&] { return world.prompts.shown.size() == 2; }));
          EXPECT_EQ(world.files.Read(path).bytes, "then\r\n");
          EXPECT_EQ(Value("Text_Differences"), "- now\n+ then\n");  // the copy it replaced
          Escape();
        }},
       {InBrowser, Escape}});
}

#ifdef __WXGTK__
// Elsewhere a menu takes the keys for itself. The last one: the pointer stays where the mouse left
// it.
TEST_F(BrowserTest, AnEscapeThatClosesAMenuClosesNothingElse) {
  Run({{InBrowser,
        [] {
          InMenu(
              [] {
                wxUIActionSimulator mouse;
                mouse.MouseMove(Browser().ClientToScreen(wxPoint(20, -12)));
                mouse.MouseClick();
              },
              {WXK_ESCAPE});
          Pump(50);
          EXPECT_TRUE(Shown("ZV_TSC"));
        }},
       {InBrowser, Escape}});
}
#endif

}  // namespace
}  // namespace zek::window
