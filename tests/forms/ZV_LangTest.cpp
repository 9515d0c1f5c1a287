#include <gtest/gtest.h>

#include <wx/uiaction.h>

#include "PlantWorld.h"
#include "WindowApp.h"
#include "app/StartSession.h"
#include "forms/main/ZV_Lang.h"

namespace zek::window {
namespace {

class ZV_LangTest : public testing::Test {
 protected:
  ZV_LangTest() {
    for (const auto& [name, text] :
         {std::pair{"zek_lang.046", "0=Svenska\r\n"}, std::pair{"zek_lang.044", "0=English\r\n"},
          std::pair{"zek_lang.ENG", "0=Nobody\r\n"}}) {
      EXPECT_FALSE(world_.files.Write(world_.directory + name, text).has_value());
    }
  }

  // Shows the form, presses the keys one after the other and returns how it ended.
  int Answer(const std::vector<int>& presses) {
    ZV_Lang form(world_.session);
    When([] { return Shown("ZV_Lang") != nullptr; },
         [&] {
           // Keys go to the window with the focus, which the system assigns later.
           EXPECT_TRUE(PumpUntil([&] { return form.IsActive() && wxWindow::FindFocus(); }));
           Pump(100);
           for (const int key : presses) {
             wxUIActionSimulator().Char(key);
             Pump(100);
           }
           if (form.GetReturnCode() == 0) form.EndModal(wxID_NONE);  // a test that fails must end
         });
    return form.ShowModal();
  }

  std::string Language() { return world_.profile.ReadIni("General", "Language", "-"); }

  PlantWorld world_;
};

TEST_F(ZV_LangTest, EnterWritesTheChosenLanguageWithThreeDigits) {
  EXPECT_EQ(Answer({WXK_DOWN, WXK_DOWN, WXK_RETURN, WXK_RETURN}), wxID_OK);
  EXPECT_EQ(Language(), "046");
  EXPECT_TRUE(LoadLanguage(world_.session));
}

TEST_F(ZV_LangTest, EscapeWritesNothing) {
  EXPECT_EQ(Answer({WXK_ESCAPE}), wxID_CANCEL);
  EXPECT_EQ(Language(), "-");
}

}  // namespace
}  // namespace zek::window
