#include <gtest/gtest.h>

#include <wx/checkbox.h>

#include "BrowserFixture.h"
#include "SpokenName.h"
#include "app/ControlCatalogues.h"
#include "forms/SceneView.h"

namespace zek::window {
namespace {

bool InPicture() { return IsActive("ZV_Applies") && HasFocus("Picture_Week"); }

[[maybe_unused]] std::string Label(const std::string& name) {
  return Shown(name)->GetLabel().utf8_string();
}

void Hear(const std::string& part) {
  const auto spoken = [] { return SpokenName(*Shown("Picture_Week")); };
  EXPECT_TRUE(PumpUntil([&] { return spoken().find(part) != std::string::npos; })) << spoken();
}
[[maybe_unused]] void Read(const std::string& part) {
  const auto why = [] { return Box("Text_Why").GetValue().utf8_string(); };
  EXPECT_TRUE(PumpUntil([&] { return why().find(part) != std::string::npos; })) << why();
}

struct AppliesTest : BrowserFixture {
  AppliesTest() { world.session.texts.Read("613=Tis\n"); }
};

TEST_F(AppliesTest, ByKeyboardFromTheTree) {
  Run({{InBrowser,
        [] {
          Press(WXK_DOWN);
          Press(WXK_F9);
        }},
       {InPicture,
        [] {
          Press(WXK_HOME);
          Hear(" 00:00 till 07:00: 17. Veckodag, rad nr 1000, stopp.");
          Press(WXK_RIGHT);
          Hear(" 07:00 till 16:30: 21. Veckodag, rad nr 1000, start.");
          Press(WXK_DOWN);
          Hear("Tis ");
          const std::string week = Label("Label_Week");
          Press(WXK_PAGEDOWN);
          EXPECT_TRUE(PumpUntil([&] { return Label("Label_Week") != week; }));
          for (const char* const next : {"Text_Why", "Check_Rule0", "Check_Rule1"})
            Reach(next, [] { Press(WXK_TAB); });
          Press(WXK_SPACE);  // each day begins with the default value
          Escape();
        }},
       {InBrowser, Escape}});
  EXPECT_EQ(RuleOf(world.profile, "SKOLA").Text(),
            "exception=mask,carry=no,nostop=default,early=same");
}

TEST_F(AppliesTest, ByMouseFromAnEditorWithItsChanges) {
  world.prompts.answers = {true};  // close without saving
  const auto clickAt = [](int row, int hour) {
    const wxWindow& picture = *Shown("Picture_Week");
    const auto& view = dynamic_cast<const SceneView&>(picture);
    const SceneBox bars = view.Places().Row(static_cast<std::size_t>(row));
    ClickAt(picture.ClientToScreen(wxPoint(static_cast<int>(view.Places().X(hour * 60 + 30)),
                                           static_cast<int>(bars.y + bars.height / 2))));
  };
  Run({{InBrowser,
        [] {
          Press(WXK_DOWN);
          Press(WXK_F5);
        }},
       {[] { return IsActive("ZV_WDC") && HasFocus("Text_Start0"); },
        [] {
          Reach("Text_Start1", [] { Click(*Shown("Command_Erase")); });
          Pump(50);  // under Wine a change of focus can take a button's click away
          Click(*Shown("Command_Applies"));
        }},
       {InPicture,
        [clickAt] {
          EXPECT_NE(Label("Label_Remark").find("inte "), std::string::npos);
          clickAt(0, 12);
          Read(": 17. Veckodag, rad nr 1000, stopp.");
          clickAt(1, 12);
          Read("Tis ");
          Read(": 21.");
          Click(*Shown("Command_After"));
          Click(*Shown("Check_Rule1"));
          clickAt(0, 12);
          Read(": inget v");
          Escape();
        }},
       {[] { return IsActive("ZV_WDC"); }, Escape},
       {InBrowser, Escape}});
}

}  // namespace
}  // namespace zek::window
