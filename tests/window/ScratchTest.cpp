#include <gtest/gtest.h>

#include <wx/treectrl.h>
#include <wx/toplevel.h>
#include <wx/uiaction.h>

#include "PlantWorld.h"
#include "catalogue/ZV_TSC.h"

namespace zek::window {
namespace {

TEST(Scratch, Look) {
  PlantWorld world;
  const char* lang = std::getenv("LNG");
  const auto text = world.files.Read(std::string("/work/wt/tooling/data/lang/zek_lang.") + (lang ? lang : "046"));
  world.session.texts.Read(text.bytes);
  world.session.settings.ViewOnly = std::getenv("VO") != nullptr;
  When([] { return Shown("ZV_TSC") != nullptr; },
       [] {
         Command(*Shown("ZV_TSC"), wxEVT_MENU, browser::Menu_ExpandAll);
         Pump(500);
         std::system("import -window root /tmp/bf-tsc.png");
         wxUIActionSimulator keys;
         keys.Char(WXK_DOWN);
         When([] { return Shown("ZV_WDC") != nullptr; }, 
         [&keys] {
           for (int k = 0; k < 3; ++k) { Pump(100); fprintf(stderr, "active %d\n", int(wxDynamicCast(Shown("ZV_WDC"), wxTopLevelWindow)->IsActive())); }

         keys.Char(WXK_RETURN);
         keys.Text("1730");
         keys.Char(WXK_RETURN);
         keys.Char(WXK_PAGEDOWN);
         keys.Char(WXK_PAGEDOWN);
         keys.Text("22,5"); for (int k = 0; k < 12; ++k) keys.Char(WXK_RETURN);
         keys.Char(WXK_RETURN);
           for (int k = 0; k < 3; ++k) { Pump(100); fprintf(stderr, "active %d\n", int(wxDynamicCast(Shown("ZV_WDC"), wxTopLevelWindow)->IsActive())); }
         std::system("import -window root /tmp/bf-wdc.png");
         keys.Char(WXK_ESCAPE);
         });
         keys.Char(WXK_RETURN);
         PumpUntil([] { return Shown("ZV_WDC") == nullptr; });
         Pump(500);
         keys.Char(WXK_ESCAPE);
       });
  ShowBrowser(nullptr, world.session, world.turn);
  for (auto& each : world.prompts.shown) puts(each.c_str());
  for (auto& each : world.session.transfer.CatalogueLines) puts(each.c_str());
}

}  // namespace
}  // namespace zek::window
