#include <gtest/gtest.h>

#include <wx/listctrl.h>

#include "BrowserFixture.h"
#include "forms/several/ZV_Several.h"

namespace zek::window {
namespace {

bool InStep(const std::string& part) { return IsActive("ZV_Several") && HasFocus(part); }
bool IsPlanned() { return InStep("List_Plan") && !Shown("Command_CancelPlan")->IsEnabled(); }
std::string Caption(const std::string& name) { return Shown(name)->GetLabel().utf8_string(); }
void Read(const std::string& name, const std::string& part) {
  EXPECT_TRUE(PumpUntil([&] {
    return Shown(name) != nullptr && Caption(name).find(part) != std::string::npos;
  })) << name
      << ": " << part;
}
void Open() { Command(Browser(), wxEVT_MENU, browser::Menu_Several); }

struct SeveralTest : BrowserFixture {
  std::string Calendars() const {
    std::string lines;
    for (const sim::Outstation& each : world.plant.outstations)
      for (const auto& [number, line] : each.calendar.lines) lines += line + "\n";
    return lines;
  }
  std::size_t KeptPlans() const { return world.files.List(world.directory + "Plans").size(); }
};

TEST_F(SeveralTest, ByKeyboardFromTheTicksToTheReport) {
  world.prompts.answers = {false, true, true};  // the change typed last is not added
  Run({{InBrowser,
        [] {
          const wxTreeItemId object = Tree().GetSelection();
          Press(WXK_DOWN);
          EXPECT_TRUE(PumpUntil([&] { return Tree().GetSelection() != object; }));
          Open();
        }},
       {[] { return InStep("List_Controls"); },
        [] {
          Read("Label_Count", ": 1");
          Press(WXK_SPACE);
          Read("Label_Count", ": 0");
          Press(WXK_SPACE);
          Read("Label_Count", ": 1");
          Press('N', wxMOD_ALT);
        }},
       {[] { return InStep("Choice_Change"); },
        [this] {
          Reach("Text_From", [] { Press(WXK_TAB); });
          Type("x");
          Press(WXK_RETURN);
          Read("Label_Wrong", "datum");
          EXPECT_TRUE(HasFocus("Text_From"));
          Box("Text_From").SelectAll();
          Type("20201224");
          Press(WXK_RETURN);
          EXPECT_TRUE(PumpUntil([] { return Caption("Label_Wrong").empty(); }));
          Type("x");
          Press('G', wxMOD_ALT);
          EXPECT_TRUE(PumpUntil([this] { return world.prompts.answers.size() == 2; }));
          EXPECT_NE(Shown("Command_Add"), nullptr);
          Press('G', wxMOD_ALT);
        }},
       {IsPlanned,
        [this] {
          Read("Label_State", "ndras: 1,");
          EXPECT_EQ(Calendars(), "");
          Press('S', wxMOD_ALT);
        }},
       {[] { return IsPlanned() && Caption("Label_State").starts_with("Klart"); }, Escape},
       {InBrowser, Escape}});
  EXPECT_NE(Calendars().find("24-DEC-20"), std::string::npos);
  EXPECT_EQ(KeptPlans(), 2U);  // the plan and its report
}

TEST_F(SeveralTest, ByMouseALaterStartIsCalledOffAndAnInterruptedPlanIsOfferedAgain) {
  world.prompts.answers = {true, Answer::Cancel};
  const auto type = [](const std::string& box, const std::string& text) {
    Reach(box, [&] { Click(*Shown(box)); });
    Pump(50);
    Type(text);
  };
  Run({{InBrowser, Open},
       {[] { return InStep("List_Controls"); },
        [] {
          Click(*Shown("Command_All"));
          Read("Label_Count", ": 3");
          Click(*Shown("Command_Next"));
        }},
       {[] { return InStep("Choice_Change"); },
        [type] {
          type("Text_From", "20201224");
          Click(*Shown("Command_Add"));
          EXPECT_TRUE(PumpUntil([] { return Shown("Command_Next")->IsEnabled(); }));
          Click(*Shown("Command_Next"));
        }},
       {IsPlanned,
        [type, this] {
          type("Text_StartDate", "20990101");
          type("Text_StartClock", "12");
          Click(*Shown("Command_StartLater"));
          Read("Label_State", "2099-01-01 12:00");
          EXPECT_EQ(KeptPlans(), 1U);
          Click(*Shown("Command_CancelPlan"));
          Read("Label_State", "ndras: 2,");
          EXPECT_EQ(KeptPlans(), 0U);
          world.link.silent = true;
          Click(*Shown("Command_Start"));
        }},
       {[this] { return world.session.status.Busy > 0; },
        [] { Click(*Shown("Command_CancelPlan")); }},
       {[] { return IsPlanned() && Caption("Label_State").starts_with("0 av 2"); }, Escape},
       {InBrowser, Escape}});
  EXPECT_TRUE(HasOpenPlan(world.session));
  Run({{[] { return InStep("List_Controls"); }, Escape}, {InBrowser, Escape}});
  EXPECT_TRUE(HasOpenPlan(world.session));
  world.link.silent = false;
  world.prompts.answers = {Answer::Yes, true};
  Run({{IsPlanned, [] { Click(*Shown("Command_Start")); }},
       {[] { return IsPlanned() && Caption("Label_State").starts_with("Klart"); }, Escape},
       {InBrowser, Escape}});
  EXPECT_FALSE(HasOpenPlan(world.session));
}

}  // namespace
}  // namespace zek::window
