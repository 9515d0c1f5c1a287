#include <gtest/gtest.h>

#include <wx/dialog.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "catalogue/Catalogue.h"
#include "forms/calendar/ZV_SDC.h"
#include "forms/exception/ZV_OVC.h"
#include "forms/weekday/ZV_WDC.h"
#include "ui/Clipboard.h"

// The common behaviour of the three editors: undo and redo, "Spara" and the title, and closing.
namespace zek::window {
namespace {

struct Editor {
  const char* form;
  Catalogue catalogue;
  void (*show)(wxWindow*, ZV_Proc&, WxTurn&, const CatalogueContent&,
               const std::optional<EntryPlace>&);
  const char* first;                  // has the focus first
  std::vector<int> change;            // keys that begin a change
  int end;                            // the key that completes it; 0 if the others already do
  std::vector<const char*> changing;  // other controls that change the catalogue
};

void PrintTo(const Editor& editor, std::ostream* out) { *out << editor.form; }

bool Usable(const char* button) { return Shown(button)->IsEnabled(); }
void Control(int key) { Press(key, wxMOD_CONTROL); }

struct EditorFormTest : testing::TestWithParam<Editor> {
  // Fetches the catalogue, opens the editor and plays the steps, which must close it.
  void Run(std::function<void()> act, LinesFrom from = LinesFrom::Controller,
           std::string_view commandLine = {}) {
    PlantWorld world(commandLine);
    prompts_ = &world.prompts;
    world.session.settings.SDCLastTwoDigitYear = 93;
    world.plant.outstations[0].exceptions.header = "UNDANTAG";
    world.plant.outstations[0].calendar.header = "SPECIALDAGAR";
    ZV_Proc& session = world.session;
    world.Select("SKOLA/AHU1");
    CatalogueContent content;
    if (!session.settings.LocalMode) content = world.Get(GetParam().catalogue);
    content.from = from;
    Play(
        {{[] { return IsActive(GetParam().form) && HasFocus(GetParam().first); }, std::move(act)}});
    GetParam().show(nullptr, session, world.turn, content, {});
    asked_ = world.prompts.shown.size();
    Pump(20);  // the form is deleted when idle; the next form has controls of the same names
  }

  static void BeginChange() {
    for (const int key : GetParam().change) Press(key);
  }
  static void MakeChange() {
    BeginChange();
    if (GetParam().end != 0) Press(GetParam().end);
  }
  // The "*" of the title, then S, U and R for the enabled buttons.
  static std::string State() {
    const auto& form = dynamic_cast<wxDialog&>(*Shown(GetParam().form));
    std::string state = form.GetTitle().StartsWith("*") ? "*" : "";
    if (Usable("Command_Ok")) state += "S";
    if (Usable("Command_Undo")) state += "U";
    if (Usable("Command_Redo")) state += "R";
    return state;
  }
  static void Becomes(const std::string& state, const char* when) {
    EXPECT_TRUE(PumpUntil([&] { return State() == state; })) << when << ": " << State();
  }

  test::ScriptedPrompts* prompts_ = nullptr;
  std::size_t asked_ = 0;
};

TEST_P(EditorFormTest, UndoAndRedoByKeyAndByMouse) {
  Run([this] {
    EXPECT_EQ(State(), "");
    Control('S');
    Control('Z');
    Control('Y');
    BeginChange();
    Becomes("*SU", "while it is typed");
    Control('Z');
    Becomes(GetParam().end == 0 ? "R" : "", "taken back");
    if (GetParam().end != 0) {
      BeginChange();
      Becomes("*SU", "while it is typed again");
      Click(*Shown("Command_Undo"));
      Becomes("", "taken back by mouse");
      EXPECT_TRUE(HasFocus(GetParam().first));
    }
    MakeChange();
    Becomes("*SU", "changed");
    Control('Z');
    Becomes("R", "undone");
    Control('Y');
    Becomes("*SU", "redone");
    Click(*Shown("Command_Undo"));
    Becomes("R", "undone by mouse");
    Click(*Shown("Command_Redo"));
    Becomes("*SU", "redone by mouse");
    Control('Z');
    Becomes("R", "undone after the mouse");
    Press('Z', wxMOD_CONTROL | wxMOD_SHIFT);
    Becomes("*SU", "redone with Shift");
    Control('Z');
    Becomes("R", "undone at last");
    Escape();
  });
  EXPECT_EQ(asked_, 0U);  // nothing saved, nothing to lose
}

TEST_P(EditorFormTest, ClosingAsksBeforeChangesAreLost) {
  Run([this] {
    MakeChange();
    Becomes("*SU", "changed");
    Escape();
    EXPECT_TRUE(PumpUntil([this] { return prompts_->shown.size() == 1; }));
    EXPECT_FALSE(dynamic_cast<wxDialog&>(*Shown(GetParam().form)).Close());
    EXPECT_EQ(prompts_->shown.size(), 2U);
    EXPECT_EQ(State(), "*SU");
    prompts_->answers = {true};
    Click(*Shown("Command_Cancel"));
  });
  EXPECT_EQ(asked_, 3U);
}

TEST_P(EditorFormTest, AForcedCloseAsksNothing) {
  Run([] {
    MakeChange();
    Becomes("*SU", "changed");
    dynamic_cast<wxDialog&>(*Shown(GetParam().form)).Close(true);
  });
  EXPECT_EQ(asked_, 0U);
}

TEST_P(EditorFormTest, AnUnchangedLocalCopyCanBeSent) {
  Run(
      [] {
        EXPECT_EQ(State(), "S");
        Escape();
      },
      LinesFrom::LocalCopy);
  Run(
      [] {
        EXPECT_EQ(State(), "");
        Escape();
      },
      LinesFrom::LocalCopy, "/LOCAL");
  EXPECT_EQ(asked_, 0U);
}

TEST_P(EditorFormTest, WithViewOnlyNothingCanBeChangedOrSaved) {
  Run(
      [] {
        const auto text = [] {
          const auto* const box = dynamic_cast<wxTextCtrl*>(Shown(GetParam().first));
          return box == nullptr ? std::string() : box->GetValue().ToStdString();
        };
        const std::string before = text();
        for (const char* const button : GetParam().changing) EXPECT_FALSE(Usable(button)) << button;
        MakeChange();
        Shown(GetParam().first)->SetFocus();
        Click(*Shown(GetParam().first));
        MakeChange();
        Control('S');
        if (!before.empty() || GetParam().catalogue == Catalogue::Ovc) {
          EXPECT_TRUE(WriteClipboard("8\t9"));
          Control('V');
          Pump(50);
        }
        EXPECT_EQ(State(), "");
        EXPECT_EQ(text(), before);
        Escape();
      },
      LinesFrom::Controller, "/VIEWONLY");
  EXPECT_EQ(asked_, 0U);
}

INSTANTIATE_TEST_SUITE_P(Each, EditorFormTest,
                         testing::Values(Editor{"ZV_WDC",
                                                Catalogue::Wdc,
                                                ShowWeekdayForm,
                                                "Text_Start0",
                                                {'8'},
                                                WXK_RETURN,
                                                {"Command_Copy", "Command_Erase"}},
                                         Editor{"ZV_SDC",
                                                Catalogue::Sdc,
                                                ShowCalendarForm,
                                                "Picture_Days",
                                                {'1', WXK_RETURN},
                                                0,
                                                {"Option_Day8"}},
                                         Editor{"ZV_OVC",
                                                Catalogue::Ovc,
                                                ShowExceptionForm,
                                                "Text_DateOn0",
                                                {'2', '0', '2', '6', '1', '2', '2', '4'},
                                                WXK_RETURN,
                                                {"Command_Erase"}}),
                         [](const auto& each) { return std::string(each.param.form).substr(3); });

}  // namespace
}  // namespace zek::window
