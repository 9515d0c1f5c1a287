#include <gtest/gtest.h>

#include <wx/dialog.h>
#include <wx/textctrl.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "catalogue/Catalogue.h"
#include "forms/exception/ZV_OVC.h"
#include "ui/Clipboard.h"

namespace zek::window {
namespace {

std::string Row(int row) {
  std::string all;
  for (const char* box :
       {"Text_DateOn", "Text_Start", "Text_ValueOn", "Text_DateOff", "Text_Stop", "Text_ValueOff"})
    all += Value(box + std::to_string(row)) + " ";
  return all;
}

void TypeInto(const std::string& box, const std::string& text) {
  Reach(box, [&] { Click(Box(box)); });
  EXPECT_TRUE(PumpUntil([&] { return Box(box).GetStringSelection() == Box(box).GetValue(); }));
  Type(text);
}

constexpr const char* kRow = "2026-12-24 08:00 20.5 Dag 2026-12-26 17:00 0 Av ";

bool InEditor() { return IsActive("ZV_OVC") && HasFocus("Text_DateOn0"); }

struct ExceptionFormTest : testing::Test {
  ExceptionFormTest() { world.plant.outstations[0].exceptions.header = "UNDANTAG"; }

  // Fetches a time control's exceptions and plays the steps in its editor.
  void Run(const std::string& node, std::vector<Step> steps) {
    world.Select(node);
    const CatalogueContent content = world.Get(Catalogue::Ovc);
    Play(std::move(steps));
    ShowExceptionForm(nullptr, world.session, world.turn, content);
  }

  // Enters the same exception at both plants and sends it.
  void SendFromBoth(void (*by)()) {
    for (const char* const node : {"SKOLA/AHU1", "KONTOR/TF2"}) {
      world.prompts.answers = {true};
      world.prompts.shown.clear();
      Run(node, {{InEditor, by}});
      EXPECT_EQ(world.prompts.shown.size(), 2U);  // whether to send, and that it was sent
    }
    EXPECT_EQ(OldLines().at(1), kOld);
    EXPECT_EQ(world.plant.outstations[1].controls[0].exceptions.lines.at(1), kModern);
  }

  std::map<int, std::string>& OldLines() { return world.plant.outstations[0].exceptions.lines; }

  using Lines = std::map<int, std::string>;
  static constexpr std::string_view kOld =
      "    1 !AHU1        !24-DEC-26,08:00..26-DEC-26,17:00       !20.5     !0";
  static constexpr std::string_view kModern =
      "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !20.5  !0";

  PlantWorld world;
};

void EnterByKeyboard() {
  Type("20261224");
  Enter("Text_Start0");
  EXPECT_EQ(Row(0), "2026-12-24 00:00 0 Av 2026-12-24 00:00  ");
  Type("0800");
  Enter("Text_ValueOn0");
  Type("20,5");
  Enter("Text_DateOff0");
  Type("2026-12-26");
  Enter("Text_Stop0");
  Type("17:00");
  Enter("Text_ValueOff0");
  InDropDown([] { Press(WXK_DOWN, wxMOD_ALT); }, {WXK_DOWN, WXK_RETURN});
  EXPECT_TRUE(PumpUntil([] { return Value("Text_ValueOff0") == "0"; }));
  Enter("Text_DateOn1");
  EXPECT_EQ(Row(0), kRow);
  Press('S', wxMOD_CONTROL);
}

// Any day in the middle of this month, and any time.
void EnterByMouse() {
  Click(Box("Text_Start0"));
  Reach("Text_DateOn0", [] { Type("8"); });  // nothing can be entered before the date
  EXPECT_EQ(Value("Text_Start0"), "");
  Pick("Text_DateOn0", "Calendar_Popup", 50, 50);
  Pick("Text_Start0", "Menu_Popup", 50, 50);
  Pick("Text_ValueOn0", "Menu_Popup", 50, 90);
  Pick("Text_DateOff0", "Calendar_Popup", 50, 65);
  Pick("Text_Stop0", "Menu_Popup", 50, 50);
  wxUIActionSimulator().MouseMove(Box("Text_Stop0").GetScreenRect().GetPosition() + wxPoint(9, 9));
  wxMouseEvent wheel(wxEVT_MOUSEWHEEL);
  wheel.m_wheelDelta = 120;
  wheel.m_wheelRotation = 40;  // of a touchpad: three make one step
  for (int part = 0; part < 3; ++part) Box("Text_Stop0").ProcessWindowEvent(wheel);
  Pick("Text_ValueOff0", "Menu_Popup", 50, 50);
  Click(Box("Text_DateOn1"));
  EXPECT_TRUE(PumpUntil([] { return HasFocus("Text_DateOn1"); }));
  const std::string row = Row(0);
  EXPECT_EQ(row.size(), std::string(kRow).size()) << row;
  EXPECT_NE(row.find("20.5 Dag"), std::string::npos) << row;
  EXPECT_NE(row.find(":45 0 Av"), std::string::npos) << row;
  Click(*Shown("Command_Ok"));
}

TEST_F(ExceptionFormTest, ByKeyboardToBothPlantsAndFetchedAgain) {
  OldLines()[9] = "    9 !VS1         !01-JAN-26,00:00                        !1        !.";
  SendFromBoth(EnterByKeyboard);
  EXPECT_EQ(OldLines().size(), 2U);
  for (const char* const node : {"SKOLA/AHU1", "KONTOR/TF2"}) {
    Run(node, {{InEditor, [] {
                  Enter("Text_Start0");
                  EXPECT_EQ(Row(0), kRow);
                  Escape();
                }}});
  }
}

TEST_F(ExceptionFormTest, ByMouse) {
  world.prompts.answers = {true};
  Run("SKOLA/AHU1", {{InEditor, EnterByMouse}});
  ASSERT_EQ(OldLines().size(), 1U);
  EXPECT_NE(OldLines().at(1).find("!20.5     !0"), std::string::npos);
}

TEST_F(ExceptionFormTest, BlocksArePastedByKeyboardAndByMouse) {
  world.prompts.answers = {true};  // close without saving
  const std::string row = "2026-12-24;0800;20,5;20261226;17:00;av\r\n";
  Run("SKOLA/AHU1",
      {{InEditor, [&] {
          const auto holds = [](int at, const std::string& text) {
            EXPECT_TRUE(PumpUntil([&] { return Row(at) == text; })) << Row(at);
          };
          EXPECT_TRUE(WriteClipboard(row + row));
          Reach("Text_DateOn1", [] { Click(Box("Text_DateOn1")); });
          Press('V', wxMOD_CONTROL);
          holds(2, kRow);
          EXPECT_TRUE(WriteClipboard("2026-12-27;;;;;;7"));  // has no box
          Press('V', wxMOD_CONTROL);
          EXPECT_TRUE(PumpUntil([&] { return world.prompts.shown.size() == 1; }));
          EXPECT_TRUE(WriteClipboard(row));
          Reach("Text_DateOn3", [] { Click(Box("Text_DateOn3")); });
          InMenu([] { Click(*Shown("Command_CopyPaste")); }, {WXK_DOWN, WXK_DOWN, WXK_RETURN});
          holds(3, kRow);
          Press('Z', wxMOD_CONTROL);
          holds(3, "      ");
          holds(2, kRow);
          Escape();
        }}});
}

TEST_F(ExceptionFormTest, EraseGoesDownTheRows) {
  OldLines()[1] = kOld;
  OldLines()[2] = "    2 !AHU1        !24-DEC-25,08:00                        !1        !.";
  world.prompts.answers = {true};
  const auto marked = [](const char* row) {
    return Shown(row)->GetFont().GetWeight() == wxFONTWEIGHT_BOLD;
  };
  Run("SKOLA/AHU1", {{InEditor, [&] {
                        EXPECT_TRUE(marked("Label_Row0"));
                        Reach("Text_DateOn1", [] { Click(*Shown("Command_Erase")); });
                        EXPECT_EQ(Row(0), "      ");
                        EXPECT_EQ(Row(1), "2025-12-24 08:00 1    ");
                        EXPECT_TRUE(marked("Label_Row1") && !marked("Label_Row0"));
                        Shown("Command_Ok")->SetFocus();
                        Pump(50);
                        EXPECT_TRUE(marked("Label_Row1"));
                        Press('S', wxMOD_CONTROL);
                      }}});
  EXPECT_NE(OldLines().at(1).find("24-DEC-25"), std::string::npos);
  EXPECT_EQ(world.link.sent.back().find("24-DEC-26"), std::string::npos);
}

// Errors are reported after the focus has moved on; saving waits until they have been shown.
TEST_F(ExceptionFormTest, WrongDatesAndTimesAreToldAndReplaced) {
  world.prompts.answers = {true};  // close without saving
  OldLines()[1] = kOld;
  const auto told = [this](std::size_t count) {
    EXPECT_TRUE(PumpUntil([&] { return world.prompts.shown.size() == count; }));
    return count == 0 ? "" : world.prompts.shown.back();
  };
  Run("SKOLA/AHU1",
      {{InEditor, [&] {
          for (const char* next : {"Text_Start0", "Text_ValueOn0", "Text_DateOff0", "Text_Stop0"})
            Enter(next);
          EXPECT_EQ(told(0), "");
          Type("25:00");
          Press(WXK_RETURN);
          EXPECT_EQ(told(1), "i Felaktig tid 25:00\r\nSkriv till exempel 07:30.");
          EXPECT_TRUE(PumpUntil([] { return HasFocus("Text_Stop0"); }));
          EXPECT_NE(Value("Text_Stop0"), "25:00");
          Press('Z', wxMOD_CONTROL);  // not stored yet
          EXPECT_TRUE(PumpUntil([] { return Value("Text_Stop0") == "17:00"; }));
          TypeInto("Text_DateOn0", "261224");
          Press('S', wxMOD_CONTROL);
          EXPECT_EQ(told(2), "i Felaktigt datum 261224\r\nSkriv till exempel 2026-12-24.");
          EXPECT_EQ(Value("Text_DateOn0").size(), 10U);
          Enter("Text_Start0");  // stores today
          Escape();
        }}});
  EXPECT_EQ(OldLines(), (Lines{{1, std::string(kOld)}}));
}

TEST_F(ExceptionFormTest, ARootNodeIsForViewingAndUnknownMonthsAreTold) {
  OldLines()[1] = kOld;
  OldLines()[2] = "    2 !            !24-MAJ-26,08:00                        !1        !.";
  const auto told = [this] { return InEditor() && world.prompts.shown.size() == 2; };
  Run("SKOLA", {{told, [] {
                   EXPECT_FALSE(Shown("Command_Ok")->IsEnabled());
                   EXPECT_EQ(Row(0), "      ");
                   Escape();
                 }}});
  EXPECT_NE(world.prompts.shown[0].find("utan namn (1), AHU1 (1)"), std::string::npos);
  EXPECT_NE(world.prompts.shown[1].find("24-MAJ-26"), std::string::npos);
}

}  // namespace
}  // namespace zek::window
