#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <regex>

#include <wx/treectrl.h>
#include <wx/weakref.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "forms/browser/ZV_TSC.h"
#include "forms/main/ZV_Main.h"
#include "ui/WxPrompts.h"

// User actions while one of the windows waits. Nothing may be sent twice or in the middle of a
// transfer, every window must close in the end, and none may be used after that (the sanitizers
// detect it).
namespace zek::window {
namespace {

constexpr std::array kForms{"PromptBox", "ZV_Findings", "ZV_Applies",    "ZV_Import", "ZV_OVC",
                            "ZV_WDC",    "ZV_SDC",      "ZV_TSCSummary", "ZV_TSC",    "ZV_Main"};

// Answers questions in a pattern that gets out of "try again?" as well as of "close without
// saving?".
constexpr std::string_view kAnswers = "yynyn";

struct ReentryWorld : PlantWorld {
  ReentryWorld() {
    ticks.Stop();  // the main window has its own timer
    for (std::size_t i = 0; i < 50; ++i)
      prompts.answers.emplace_back(kAnswers[i % kAnswers.size()] == 'y');
    EXPECT_FALSE(profile.WriteIni("SaveDelay", "DelayA", "1"));
    EXPECT_FALSE(files.Write(directory + "PLANT_5100 Bj\xC3\xB6rkskolan SDC.TXT", ""));
    main = new ZV_Main(session, turn);  // deleted when it closes
    main->AskFile = [](bool /*save*/) { return std::string(); };
    main->Show();
    EXPECT_TRUE(PumpUntil([] { return Shown("ZV_Info") != nullptr; }));
    Shown("ZV_Info")->Close();
    EXPECT_TRUE(PumpUntil([] { return Shown("ZV_Info") == nullptr; }));
  }

  // From now on the message boxes are real.
  void ShowBoxes() { boxesShown_.emplace(session.prompts, boxes_); }

  wxWeakRef<ZV_Main> main;

 private:
  WxPrompts boxes_;
  std::optional<PromptsInstead> boxesShown_;
};

wxWindow* FormInFront() {
  for (const char* const name : kForms)
    if (wxWindow* const form = Shown(name)) return form;
  return nullptr;
}
void Post(const char* window, wxEventType type, int id, int number = 0) {
  wxWindow* const target = Shown(window);
  if (target == nullptr || !target->IsEnabled()) return;
  if (wxGetTopLevelParent(target) != FormInFront()) return;  // a modal form is above it
  auto event = std::make_unique<wxCommandEvent>(type, id == 0 ? target->GetId() : id);
  event->SetEventObject(target);
  event->SetInt(number);
  target->GetEventHandler()->QueueEvent(event.release());
}
void Menu(const char* form, int id) { Post(form, wxEVT_MENU, id); }
void ChooseTopic(int topic) { Post("Combo_Topics", wxEVT_CHOICE, 0, topic); }
void CloseForm(const char* name, bool force = false) {
  if (wxWindow* const form = Shown(name)) form->Close(force);
}
void CloseInnermost() {
  static std::size_t questions = 0;
  wxWindow* const form = FormInFront();
  if (form == nullptr) return;
  if (wxWindow::FindWindowById(wxID_YES, form) == nullptr) {
    form->Close();
  } else {
    const bool yes = kAnswers[questions++ % kAnswers.size()] == 'y';
    Command(*form, wxEVT_BUTTON, yes ? wxID_YES : wxID_NO);
  }
}
void TypeCommand(const char* command) {
  if (Shown("Text_Input") == nullptr) return;
  Box("Text_Input").ChangeValue(wxString::FromUTF8(command));
  Post("Text_Input", wxEVT_TEXT_ENTER, 0);
}

// --- The waits ---

struct Wait {
  const char* name;
  std::function<void(ReentryWorld&)> begin;  // leads to the wait; the test does not wait for it
  std::function<bool(const ReentryWorld&)> reached;
};

void InBrowser(ReentryWorld& /*world*/, std::function<void()> act) {
  Menu("ZV_Main", main_menu::Menu_TSC);
  When([] { return Shown("TreeView") != nullptr && HasFocus("TreeView"); },
       [act = std::move(act)] {
         auto& tree = dynamic_cast<wxTreeCtrl&>(*Shown("TreeView"));
         wxTreeItemIdValue cookie = nullptr;
         tree.SelectItem(tree.GetFirstChild(tree.GetSelection(), cookie));
         act();
       });
}
void SaveFromEditor(ReentryWorld& world) {
  InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_GetWDC); });
  When([] { return HasFocus("Text_Start0"); },
       [] {
         Box("Text_Start0").SetValue("8");
         Post("Command_Ok", wxEVT_BUTTON, 0);
       });
}
// With a pause that the test does not miss.
void CheckAfterSave(ReentryWorld& world) {
  EXPECT_FALSE(world.profile.WriteIni("GetDelay", "DelayA", "1"));
  SaveFromEditor(world);
}
bool IsVerifying(const ReentryWorld& world) { return world.IsVerifying(); }
bool IsFetching(const ReentryWorld& world) { return world.session.status.Busy > 0; }

bool BoxIsUp(const ReentryWorld& /*world*/) { return Shown("PromptBox") != nullptr; }

// An editor, in which a button leads to a window.
Wait AboveEditor(const char* name, int editor, const char* button, const char* window) {
  return {name,
          [editor, button](ReentryWorld& world) {
            InBrowser(world, [editor] { Menu("ZV_TSC", editor); });
            When([button] { return Shown(button) != nullptr && Shown(button)->IsEnabled(); },
                 [button] { Post(button, wxEVT_BUTTON, 0); });
          },
          [window](const ReentryWorld& /*world*/) { return Shown(window) != nullptr; }};
}

const std::vector<Wait> kWaits = {
    {"a connection",
     [](ReentryWorld& world) {
       world.link.answersOpen = false;
       ChooseTopic(0);
     },
     [](const ReentryWorld& world) { return !world.session.status.Waiting.empty(); }},
    {"an answer",
     [](ReentryWorld& world) {
       ChooseTopic(0);
       When([] { return Shown("Text_Input")->IsEnabled(); },
            [&world] {
              world.link.silent = true;
              TypeCommand("TIME");
            });
     },
     [](const ReentryWorld& world) { return world.session.status.Hourglass > 0; }},
    {"a catalogue",
     [](ReentryWorld& world) {
       world.link.silent = true;
       InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_GetWDC); });
     },
     IsFetching},
    {"the editor",
     [](ReentryWorld& world) {
       InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_GetWDC); });
       When([] { return HasFocus("Text_Start0"); }, [] { Box("Text_Start0").SetValue("8"); });
     },
     [](const ReentryWorld& /*world*/) {
       return Shown("Command_Ok") != nullptr && Shown("Command_Ok")->IsEnabled();
     }},
    {"a write", SaveFromEditor,
     [](const ReentryWorld& world) {
       return Shown("ZV_WDC") != nullptr && world.session.status.Busy > 0;
     }},
    {"a check of what was written", CheckAfterSave, IsVerifying},
    {"a check that gets no answer",
     [](ReentryWorld& world) {
       CheckAfterSave(world);
       When([&world] { return IsVerifying(world); }, [&world] { world.link.silent = true; });
     },
     IsVerifying},
    {"a question before a write",
     [](ReentryWorld& world) {
       world.ShowBoxes();
       SaveFromEditor(world);
     },
     BoxIsUp},
    {"a box over the main window",
     [](ReentryWorld& world) {
       world.ShowBoxes();
       ChooseTopic(0);
       When([] { return Shown("Text_Input")->IsEnabled(); }, [] { TypeCommand("\xE4\xB8\xAD"); });
     },
     BoxIsUp},
    {"a fetch for what applies",
     [](ReentryWorld& world) {
       world.link.silent = true;
       InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_Applies); });
     },
     IsFetching},
    {"what applies",
     [](ReentryWorld& world) { InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_Applies); }); },
     [](const ReentryWorld& /*world*/) { return Shown("ZV_Applies") != nullptr; }},
    {"the findings of the plant",
     [](ReentryWorld& world) { InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_Findings); }); },
     [](const ReentryWorld& /*world*/) { return Shown("ZV_Findings") != nullptr; }},
    AboveEditor("what applies, above an editor", browser::Menu_GetWDC, "Command_Applies",
                "ZV_Applies"),
    AboveEditor("the findings of an editor", browser::Menu_GetOVC, "Command_Findings",
                "ZV_Findings"),
    AboveEditor("the year of the calendar", browser::Menu_GetSDC, "Command_Year", "Picture_Year"),
    AboveEditor("the holidays", browser::Menu_GetSDC, "Command_Holidays", "ZV_Import"),
    {"an export",
     [](ReentryWorld& world) {
       world.link.silent = true;
       InBrowser(world, [] { Menu("ZV_TSC", browser::Menu_Batch_Run); });
     },
     IsFetching},
};

// --- The user's actions ---

struct Action {
  const char* name;
  std::function<void()> act;
};

const std::vector<Action> kActions = {
    {"close what is in front", CloseInnermost},
    {"close the browser", [] { CloseForm("ZV_TSC"); }},
    {"close the main window", [] { CloseForm("ZV_Main"); }},
    {"end the session",
     [] {
       for (const char* form : kForms) CloseForm(form, true);
     }},
    {"end it from the main window", [] { CloseForm("ZV_Main", true); }},
    {"Escape", Escape},
    {"F5", [] { Press(WXK_F5); }},
    {"Delete", [] { Press(WXK_DELETE); }},
    {"Ctrl+S", [] { Press('S', wxMOD_CONTROL); }},
    {"Ctrl+Z", [] { Press('Z', wxMOD_CONTROL); }},
    {"save", [] { Post("Command_Ok", wxEVT_BUTTON, 0); }},
    {"get", [] { Menu("ZV_TSC", browser::Menu_GetOVC); }},
    {"erase", [] { Menu("ZV_TSC", browser::Menu_EraseSDC); }},
    {"export", [] { Menu("ZV_TSC", browser::Menu_Batch_Run); }},
    {"disconnect", [] { Menu("ZV_Main", main_menu::Menu_Disconnect); }},
    {"another topic", [] { ChooseTopic(1); }},
    {"a command", [] { TypeCommand("TIME"); }},
    {"the browser", [] { Menu("ZV_Main", main_menu::Menu_TSC); }},
    {"what applies", [] { Press(WXK_F9); }},
    {"the findings", [] { Post("Command_Findings", wxEVT_BUTTON, 0); }},
    {"the findings of the plant", [] { Menu("ZV_TSC", browser::Menu_Findings); }},
};

// --- A case ---

// True when the bytes of a connection are typed commands and then the beginning of one transfer.
bool BeginsOneTransfer(const std::string& sent) {
  static const std::regex transfer(
      "((DUS:3|TIME)\r)*"
      "(\x05(LIST [^\r]*\r)?|EXIT\r(EXIT\r([.]WDC\r( [^\r]*\r)*(EXIT\r)?)?)?)?");
  return std::regex_match(sent, transfer);
}

std::string FaultOf(const ReentryWorld& world, bool closed) {
  const ZV_Proc& session = world.session;
  if (!closed) return "not every window closed";
  if (session.status.Busy != 0 || session.status.Hourglass != 0) return "busy";
  if (session.transfer.Kind != TransferKind::Idle) return "a transfer is left over";
  if (session.batch.IsRunning()) return "an export is left over";
  if (session.connection.CurrentTopic >= 0 || world.link.State() != LinkState::Closed)
    return "connected";
  for (const std::string& sent : world.link.sent)
    if (!BeginsOneTransfer(sent)) return "sent: " + sent;
  return {};
}

// Closes all forms, innermost first, inside the event loop that runs.
void CloseAll(const wxWeakRef<ZV_Main>& main) {
  When([] { return true; },
       [main] {
         if (!main) return;
         CloseAll(main);
         CloseInnermost();
       });
}

std::string Played(const Wait& wait, const Action& action) {
  ReentryWorld world;
  const wxWeakRef<ZV_Main> main = world.main;
  bool acted = false;
  When([&] { return wait.reached(world); },
       [&] {
         acted = true;
         CloseAll(main);
         action.act();
       });
  wait.begin(world);
  const bool closed = PumpUntil([&] { return !main; });
  Pump(20);  // pending events find no window
  EXPECT_TRUE(acted);
  return FaultOf(world, closed);
}

// All cases take some minutes; without ZEKVIEW_FULL only every eleventh runs.
TEST(WindowReentry, EveryActionAtEveryWait) {
  const std::size_t step = std::getenv("ZEKVIEW_FULL") != nullptr ? 1 : 11;
  std::size_t number = 0;
  std::size_t cases = 0;
  std::size_t good = 0;
  for (const Wait& wait : kWaits) {
    for (const Action& action : kActions) {
      if (number++ % step != 0) continue;
      const std::string fault = Played(wait, action);
      EXPECT_EQ(fault, "") << action.name << " during " << wait.name;
      ++cases;
      good += fault.empty() ? 1U : 0U;
    }
  }
  std::cout << "figure: re-entry, windows: " << good << " of " << cases << std::endl;
}

}  // namespace
}  // namespace zek::window
