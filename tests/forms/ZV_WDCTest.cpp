#include <cmath>
#include <gtest/gtest.h>

#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

#include "BrowserFixture.h"
#include "SpokenName.h"
#include "forms/SceneView.h"
#include "lang/TextNumbers.h"

namespace zek::window {
namespace {

bool InEditor() { return IsActive("ZV_WDC") && HasFocus("Text_Start0"); }

void FetchFirstTimeControl() {
  Press(WXK_DOWN);
  Press(WXK_RETURN);
}

void ChangeAndSave() {
  Type("8");
  Press('S', wxMOD_CONTROL);
}

struct WeekdayFormTest : BrowserFixture {
  const std::map<int, std::string>& PlantLines() const {
    return world.plant.outstations[0].weekday.lines;
  }

  static constexpr std::string_view kChanged =
      " 1000 !AHU1        !MO           !07:00..17:30             !22.5     !17";
};

TEST_F(WeekdayFormTest, ByKeyboardFromTheTreeToThePlant) {
  world.prompts.answers = {true};
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [] {
          EXPECT_EQ(Value("Text_Start0"), "07:00");
          Enter("Text_Stop0");
          Type("1730");  // replaces the selected 16:30
          Enter("Text_ValueOn0");
          EXPECT_EQ(Value("Text_Stop0"), "17:30");
          Type("22,5");
          Press('S', wxMOD_CONTROL);  // includes the entry that still has the focus
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(PlantLines().at(1000), kChanged);
  EXPECT_EQ(world.prompts.shown.size(), 2U);  // whether to send, and that it was sent
  // The list below the question names the day as the form does.
  EXPECT_NE(world.prompts.details.at(0).find("  nu    M\xE5n "), std::string::npos);
}

TEST_F(WeekdayFormTest, ByMouseFromTheTreeToThePlant) {
  world.prompts.answers = {true};
  std::string sent(kChanged);
  Run({{InBrowser,
        [] {
          wxTreeCtrl& tree = Tree();
          wxTreeItemIdValue cookie = nullptr;
          wxRect item;
          tree.GetBoundingRect(tree.GetFirstChild(tree.GetSelection(), cookie), item, true);
          wxUIActionSimulator mouse;
          mouse.MouseMove(tree.ClientToScreen(item.GetPosition() + item.GetSize() / 2));
          mouse.MouseDblClick();
        }},
       {InEditor,
        [&sent] {
          Reach("Text_Stop0", [] { Click(Box("Text_Stop0")); });
          EXPECT_TRUE(PumpUntil([] { return Box("Text_Stop0").GetStringSelection() == "16:30"; }));
          Pick("Text_Stop0", "Menu_Popup", 50, 20);
          EXPECT_NE(Value("Text_Stop0"), "16:30");
          sent.replace(sent.find("17:30"), 5, Value("Text_Stop0"));
          Pick("Text_ValueOn0", "Menu_Popup", 50, 90);
          sent.replace(sent.find("22.5"), 4, "20.5");
          Click(*Shown("Command_Ok"));
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(PlantLines().at(1000), sent);
}

TEST_F(WeekdayFormTest, EnterRowsCopyEraseAndTypes) {
  world.prompts.answers = {true};  // close without saving
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [] {
          constexpr auto npos = std::string::npos;
          const auto text = [](const char* name) { return Shown(name)->GetLabel().ToStdString(); };
          for (const char* box : {"Text_Stop0", "Text_ValueOn0", "Text_ValueOff0", "Text_Start1"})
            Enter(box);
          Type("25:00");
          // Refused: no way leads on, and the reason is in the status line.
          Press(WXK_RETURN);
          Press(WXK_PAGEDOWN);
          Click(*Shown("Command_Copy"));
          EXPECT_TRUE(PumpUntil([&] { return text("Label_Status").find("25:00") != npos; }));
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Text_Start1"); }));
          EXPECT_EQ(Value("Text_Start1"), "25:00");
          EXPECT_NE(SpokenName(Box("Text_Start1")).find("25:00"), npos);
          Press('Z', wxMOD_CONTROL);
          Press(WXK_PAGEDOWN);
          EXPECT_TRUE(PumpUntil([] { return Value("Text_Stop1").empty(); }));
          Reach("Text_Start5", [] { Box("Text_Start5").SetFocus(); });
          Type("8");
          Reach("Text_Start6", [] { Click(*Shown("Command_Copy")); });
          EXPECT_EQ(Value("Text_Start6"), "08:00");
          EXPECT_NE(text("Option_Type0").find("(7)"), npos);
          wxUIActionSimulator mouse;
          mouse.MouseMove(Shown("Command_Erase")->GetScreenRect().GetPosition() + wxPoint(9, 9));
          mouse.MouseDblClick();  // the second click does nothing
          Pump(50);
          EXPECT_NE(text("Option_Type0").find("(6)"), npos);
          Press(WXK_PAGEUP);
          EXPECT_TRUE(PumpUntil([] { return Value("Text_Start0") == "07:00"; }));
          Click(*Shown("Option_Type1"));
          EXPECT_TRUE(PumpUntil([] { return Value("Text_Start0").empty(); }));
          EXPECT_EQ(text("Label_Weekdays6"), "SD 7");
          Escape();
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(PlantLines(), PlantWorld::SmallPlant().outstations[0].weekday.lines);
}

void Holds(const std::string& box, const std::string& value) {
  EXPECT_TRUE(PumpUntil([&] { return Value(box) == value; })) << box << " " << Value(box);
}

// Copies and waits for the status line to say so.
void CopyBoxes() {
  Press('C', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([] { return Shown("Label_Status")->GetLabel().Contains("Kopierat"); }));
}

bool InCopyDays() { return IsActive("ZV_CopyDays") && HasFocus("Check_Day1"); }

TEST_F(WeekdayFormTest, BlocksAndRowsAreCopiedByKeyboard) {
  world.prompts.answers = {true};  // close without saving
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [] {
          for (const int key : {WXK_DOWN, WXK_RIGHT, WXK_RIGHT, WXK_LEFT})
            Press(key, wxMOD_CONTROL | wxMOD_SHIFT);
          CopyBoxes();
          Reach("Text_Start5", [] { Box("Text_Start5").SetFocus(); });
          Press('V', wxMOD_CONTROL);
          Holds("Text_Stop6", "16:30");
          Enter("Text_Stop5");
          Press('C', wxMOD_CONTROL);  // of one box
          Reach("Text_Stop6", [] { Press(WXK_TAB); });
          Type("9");
          Press('V', wxMOD_CONTROL);
          Holds("Text_Stop6", "916:30");
          for (int step = 0; step < 2; ++step) Press('Z', wxMOD_CONTROL);  // typed text, block
          Holds("Text_Stop5", "");
          Reach("Text_Start0", [] { Box("Text_Start0").SetFocus(); });
          Reach("Command_CopyPaste", [] { Shown("Command_CopyPaste")->SetFocus(); });
          InMenu([] { Press(WXK_SPACE); }, {WXK_DOWN, WXK_RETURN});
        }},
       {InCopyDays,
        [] {
          Reach("Check_Day5", [] {
            for (int day = 1; day < 5; ++day) Press(WXK_TAB);
          });
          Press(WXK_SPACE);
          Press(WXK_RETURN);
        }},
       {[] { return InEditor() && Shown("ZV_CopyDays") == nullptr; },
        [] {
          Holds("Text_Stop5", "16:30");
          Escape();
        }},
       {InBrowser, Escape}});
}

TEST_F(WeekdayFormTest, BlocksDaysAndCataloguesAreCopiedByMouse) {
  world.prompts.answers = {true, true};  // values that are not listed; close without saving
  const auto menu = [](int entry) {
    std::vector<int> keys(static_cast<std::size_t>(entry), WXK_DOWN);
    keys.push_back(WXK_RETURN);
    InMenu([] { Click(*Shown("Command_CopyPaste")); }, keys);
  };
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [=] {
          wxUIActionSimulator keys;
          keys.KeyDown(WXK_SHIFT);
          Click(Box("Text_Stop1"));
          keys.KeyUp(WXK_SHIFT);
          Pump(50);
          EXPECT_TRUE(HasFocus("Text_Start0"));
          menu(3);  // the boxes
          Click(Box("Text_Start5"));
          menu(4);  // paste
          Holds("Text_Stop6", "16:30");
          menu(2);  // the whole catalogue
          Press('Z', wxMOD_CONTROL);
          Holds("Text_Stop6", "");
          Reach("Text_Start0", [] { Click(Box("Text_Start0")); });
          menu(1);
        }},
       {InCopyDays,
        [] {
          Click(*Shown("Option_What2"));
          Click(*Shown("Check_Day6"));
          Click(*Shown("Command_CopyDays"));
        }},
       {[] { return InEditor() && Shown("ZV_CopyDays") == nullptr; },
        [=] {
          Holds("Text_Stop6", "16:30");
          Holds("Text_Stop5", "");
          menu(4);
          Holds("Text_Stop5", "16:30");
          Escape();
        }},
       {InBrowser, Escape}});
  ASSERT_EQ(world.prompts.shown.size(), 2U);
  EXPECT_NE(world.prompts.shown[0].find(": 21"), std::string::npos);
}

TEST_F(WeekdayFormTest, ValuesComeFromAPickListByClickAndByKey) {
  world.prompts.answers = {true};  // close without saving
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [] {
          const auto holds = [](const std::string& box, const std::string& value) {
            EXPECT_TRUE(PumpUntil([&] { return Value(box) == value; })) << Value(box);
          };
          const auto byKey = [] { Press(WXK_DOWN, wxMOD_ALT); };
          InDropDown([] { Click(Box("Text_ValueOn0")); }, {WXK_DOWN, WXK_DOWN, WXK_RETURN});
          holds("Text_ValueOn0", "20.5");
          Enter("Text_ValueOff0");
          InDropDown(byKey, {WXK_DOWN, WXK_RETURN});
          holds("Text_ValueOff0", "");
          InDropDown(byKey, {WXK_DOWN, WXK_RETURN});
          holds("Text_ValueOff0", "0");
          Escape();
        }},
       {InBrowser, Escape}});
}

TEST_F(WeekdayFormTest, BarsOfThePictureAreMovedByKeyAndByMouse) {
  world.session.texts.Read("613=Tis\n");
  const auto placeOf = [](int row, int minute) {
    const auto& view = dynamic_cast<const SceneView&>(*Shown("Picture_Rows"));
    const SceneBox box = view.Places().Row(static_cast<std::size_t>(row));
    return view.ClientToScreen(wxPoint(static_cast<int>(std::lround(view.Places().X(minute))),
                                       static_cast<int>(box.y + box.height / 2)));
  };
  const auto holds = [](const std::string& box, const std::string& value) {
    EXPECT_TRUE(PumpUntil([&] { return Value(box) == value; })) << box << " " << Value(box);
  };
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor,
        [=] {
          Reach("Picture_Rows", [] { Shown("Picture_Rows")->SetFocus(); });
          Press(WXK_RIGHT);
          const auto spoken = [] { return SpokenName(*Shown("Picture_Rows")); };
          EXPECT_TRUE(PumpUntil([&] {
            return spoken() == "Tis 07:00 till 16:30: 21. Tis, rad 1.";
          })) << spoken();
          for (const int key : {WXK_SPACE, WXK_RIGHT, WXK_RIGHT}) Press(key);
          Press(WXK_LEFT, wxMOD_SHIFT);
          Press(WXK_RETURN);
          holds("Text_Start1", "07:09");
          for (const int key : {WXK_SPACE, WXK_SPACE, WXK_LEFT, WXK_ESCAPE}) Press(key);
          for (const int key : {WXK_SPACE, WXK_RIGHT}) Press(key);  // another control enters it
          EXPECT_TRUE(
              PumpUntil([] { return Shown("Label_Status")->GetLabel().Contains("07:14"); }));
          Reach("Check_Picture", [] { Shown("Check_Picture")->SetFocus(); });
          holds("Text_Start1", "07:14");
          Press('Z', wxMOD_CONTROL);
          holds("Text_Start1", "07:09");
          ClickAt(placeOf(2, 12 * 60));
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Text_Start2"); }));
          holds("Text_Stop1", "16:30");
          const wxPoint from = placeOf(1, 16 * 60 + 30);  // of another bar than the current one
          const wxPoint to = placeOf(1, 18 * 60);
          wxUIActionSimulator().MouseDragDrop(from.x - 1, from.y, to.x, to.y);
          holds("Text_Stop1", "18:00");
          Press('Z', wxMOD_CONTROL);  // one step for each
          holds("Text_Stop1", "16:30");
          Press('Z', wxMOD_CONTROL);
          holds("Text_Start1", "07:00");
          Click(*Shown("Check_Picture"));
          EXPECT_TRUE(PumpUntil([] { return Shown("Picture_Rows") == nullptr; }));
          Escape();  // all is undone
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(world.profile.ReadIni("General", "WeekPicture", ""), "no");
}

TEST_F(WeekdayFormTest, AFailedSaveLeavesItOpenAndUnreadLinesAreTold) {
  world.plant.outstations[0].weekday.lines[1001] =
      " 1001 !AHU1        !XX           !07:00..16:30             !21       !17";
  const auto shown = [this](std::size_t count) {
    return [this, count] { return InEditor() && world.prompts.shown.size() == count; };
  };
  // Lines are lost; don't send; don't try again; close without it.
  world.prompts.answers = {true, false, false, true};
  Run({{InBrowser, FetchFirstTimeControl},
       {shown(1), ChangeAndSave},
       {shown(4),
        [] {
          EXPECT_TRUE(Shown("Command_Ok")->IsEnabled());
          Press('Z', wxMOD_CONTROL);  // back to the fetched table; the local copy now differs
          EXPECT_TRUE(PumpUntil([] { return Value("Text_Start0") == "07:00"; }));
          EXPECT_TRUE(Shown("Command_Ok")->IsEnabled());
          Escape();
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(world.prompts.shown.size(), 5U);
  EXPECT_NE(world.prompts.shown[0].find("!XX"), std::string::npos);
}

// The user clicks while the answers are delayed; closing waits until the catalogue is written.
TEST_F(WeekdayFormTest, AWriteIsShownAndCanBeCancelledAfterAQuestion) {
  ASSERT_FALSE(world.profile.WriteIni("SaveDelay", "DelayE", "2"));
  world.prompts.answers = {true, false, true, false, true};  // send, go on, stop, no retry, close
  const auto escape = [this](std::size_t shown) {
    return Step{[this, shown] {
                  const wxWindow* const bar = Shown("Gauge_Sent");
                  return bar != nullptr && Shown("Command_Cancel")->IsEnabled() &&
                         world.prompts.shown.size() == shown;
                },
                Escape};
  };
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor, ChangeAndSave},
       escape(1),
       escape(2),
       {[this] { return InEditor() && world.prompts.shown.size() == 5; }, Escape},
       {InBrowser, Escape}});
  ASSERT_EQ(world.prompts.shown.size(), 6U);
  EXPECT_NE(world.prompts.shown[2].find(world.session.Text(text::kAskStopShared)),
            std::string::npos);
  EXPECT_NE(world.prompts.shown[3].find(world.session.Text(text::kSendStopped)), std::string::npos);
}

TEST_F(WeekdayFormTest, TwoProgramsWithOneCatalogueSeeEachOther) {
  world.Select("SKOLA/AHU1");
  const CatalogueId id = world.session.selection.Id(Catalogue::Wdc);
  OpenMarks other(world.files, world.session.settings, world.session.texts, SystemTime,
                  {"EVA", "HALL", "1"});
  other.Open(id);
  Run({{InBrowser, FetchFirstTimeControl},
       {[] { return InEditor() && Shown("Label_Opened") != nullptr; },
        [&] {
          EXPECT_NE(Shown("Label_Opened")->GetLabel().find("EVA"), wxString::npos);
          EXPECT_NE(other.OthersAt(id), "");
          Escape();
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(other.OthersAt(id), "");
}

TEST_F(WeekdayFormTest, AWriteIsVerifiedAndSaysSo) {
  world.session.settings.VerifyAfterWrite = true;
  world.prompts.answers = {true};
  Run({{InBrowser, FetchFirstTimeControl}, {InEditor, ChangeAndSave}, {InBrowser, Escape}});
  ASSERT_EQ(world.prompts.shown.size(), 2U);
  EXPECT_EQ(world.prompts.shown[1],
            "i " + world.session.Text(text::kVerified) + "\r\nTopic 'SKOLA'");
}

// The controller has the catalogue by then, so nothing is half done when the wait ends.
TEST_F(WeekdayFormTest, EscapeEndsAVerificationThatGetsNoAnswer) {
  world.session.settings.VerifyAfterWrite = true;
  world.prompts.answers = {true, false, true};  // send; don't try again; close anyway
  ASSERT_FALSE(world.profile.WriteIni("GetDelay", "DelayA", "1"));
  Run({{InBrowser, FetchFirstTimeControl},
       {InEditor, ChangeAndSave},
       {[this] {
          const wxWindow* const editor = Shown("ZV_WDC");
          // The fetch before the question can be cancelled, too.
          return world.prompts.shown.size() == 1 && world.IsVerifying() && editor != nullptr &&
                 wxWindow::FindWindowById(wxID_CANCEL, editor)->HasFocus();
        },
        [this] {
          world.link.silent = true;
          Escape();
        }},
       {[this] { return world.prompts.shown.size() == 3 && InEditor(); }, Escape},
       {InBrowser, Escape}});
  ASSERT_EQ(world.prompts.shown.size(), 4U);
  EXPECT_EQ(world.prompts.shown[1],
            "x " + world.session.Text(text::kVerifyStopped) + "\r\nTopic 'SKOLA'");
  EXPECT_NE(PlantLines().at(1000).find("!08:00..16:30"), std::string::npos);
}

}  // namespace
}  // namespace zek::window
