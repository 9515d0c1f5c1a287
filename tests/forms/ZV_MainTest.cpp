#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

#include <wx/choice.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/textbuf.h>
#include <wx/toolbar.h>
#include <wx/uiaction.h>

#include "Keys.h"
#include "PlantWorld.h"
#include "comm/LogText.h"
#include "forms/main/ZV_Main.h"
#include "ui/WxPrompts.h"

namespace zek::window {
namespace {

using namespace main_menu;

constexpr std::string_view kIni =
    "[General]\r\nDialogMode=ALL\r\nHideDialogOnTSC=yes\r\n"
    "[Topics]\r\nSKOLA=YES,1,HOST:1,Skolan\r\nKONTOR=YES,2,HOST:2,Kontoret\r\n";

class ZV_MainTest : public testing::Test {
 protected:
  void TearDown() override {
    if (form_) form_->Close();
    EXPECT_TRUE(PumpUntil([this] { return !form_; }));
  }

  void Begin(std::string_view commandLine, std::string_view ini = kIni) {
    world_ = std::make_unique<PlantWorld>(commandLine, ini);
    world_->ticks.Stop();                                // the window has its own
    form_ = new ZV_Main(world_->session, world_->turn);  // deleted when it closes
    form_->Show();
  }
  void Open(std::string_view commandLine = {}) {
    Begin(commandLine);
    EXPECT_TRUE(PumpUntil([this] { return Shown("ZV_Info") && topics().GetCount() > 0; }));
  }

  // Without a window manager keys go to the window under the pointer, with some managers to the
  // newest window. Neither may be the about box.
  void CloseAboutBox() {
    if (wxWindow* const box = Shown("ZV_Info")) box->Close();
    EXPECT_TRUE(PumpUntil([] { return Shown("ZV_Info") == nullptr; }));
  }

  void Connect(int item = 0) {
    CloseAboutBox();
    topics().SetSelection(item);
    wxCommandEvent event(wxEVT_CHOICE, topics().GetId());
    event.SetInt(item);
    topics().ProcessWindowEvent(event);
    EXPECT_TRUE(PumpUntil([this] { return input().IsEnabled() && input().HasFocus(); }));
    Pump(50);
  }

  void Key(int key, int modifiers = wxMOD_NONE) {
    keys_.Char(key, modifiers);
    Pump(50);
  }

  void Type(const char* text) {
    keys_.Text(text);
    Pump(50);
  }

  wxChoice& topics() { return *dynamic_cast<wxChoice*>(Shown("Combo_Topics")); }
  LogList& list() { return *dynamic_cast<LogList*>(Shown("List_Output")); }
  wxTextCtrl& input() { return *dynamic_cast<wxTextCtrl*>(Shown("Text_Input")); }
  ZV_Proc& proc() { return world_->session; }
  PlantLink& link() { return world_->link; }
  const std::string& sent() { return link().sent.back(); }

  std::unique_ptr<PlantWorld> world_;
  wxWeakRef<ZV_Main> form_;
  wxUIActionSimulator keys_;
};

TEST_F(ZV_MainTest, ATypedCommandIsSentAndItsAnswerLogged) {
  Open();
  Connect();
  proc().settings.LogCommands = true;
  EXPECT_EQ(topics().GetStringSelection(), "Kontoret [HOST:2/KONTOR]");  // sorted
  Type("list wdc");
  input().ChangeValue(input().GetValue().Upper());
  Key(WXK_RETURN);
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 4; }));
  EXPECT_EQ(proc().log.Lines().front(), "> LIST WDC");
  EXPECT_EQ(sent(), "LIST WDC\r");
  EXPECT_EQ(list().CurrentLine(), "EXIT");
  EXPECT_TRUE(PumpUntil([this] { return input().IsEmpty(); }));
  EXPECT_EQ(form_->GetStatusBar()->GetStatusText(0), "Kontoret (KONTOR)");
  EXPECT_EQ(form_->GetStatusBar()->GetStatusText(2), "0001");
  Type("x");
  Key(WXK_UP);
  EXPECT_EQ(input().GetValue(), "LIST WDC");
  Key(WXK_DOWN);
  EXPECT_EQ(input().GetValue().Lower(), "x");
}

// Without topics the window says what to do.
TEST_F(ZV_MainTest, AControllerIsAddedInTheWindow) {
  Begin("", "[General]\r\nLanguage=046\r\n");
  EXPECT_TRUE(PumpUntil([] { return Shown("Command_AddTopic") && Shown("ZV_Info"); }));
  CloseAboutBox();
  Play({{[] { return IsActive("ZV_Topic"); },
         [] {
           Box("Text_Address").SetValue("plant:0");
           Command(*Shown("ZV_Topic"), wxEVT_BUTTON, wxID_OK);
         }},
        {[] { return !Shown("Label_State")->GetLabel().Trim().empty(); },
         [] {
           Box("Text_Name").SetValue("SKOLA");
           Box("Text_Address").SetValue("plant:5100");
           Click(*Shown("Command_Test"));
         }},
        {[this] {
           return !link().sent.empty() && Shown("Label_State")->GetLabel() == "DUC svarar.";
         },
         [] { Command(*Shown("ZV_Topic"), wxEVT_BUTTON, wxID_OK); }}});
  Click(*Shown("Command_AddTopic"));
  EXPECT_TRUE(PumpUntil([this] { return topics().GetCount() == 1 && !Shown("Panel_Welcome"); }));
}

TEST_F(ZV_MainTest, ControlCharactersGoAtOnceAndLeaveTheText) {
  Open();
  Connect();
  proc().countdowns.IdleCountdown = 1;
  Type("abc");
  Key('E', wxMOD_CONTROL);
  Key('P', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([this] { return sent() == "\x05\x10"; }));
  EXPECT_EQ(input().GetValue().Lower(), "abc");
  EXPECT_GT(proc().countdowns.IdleCountdown, 1);
}

TEST_F(ZV_MainTest, NothingIsSentWhenOnlyViewing) {
  Open("/VIEWONLY");
  Connect();
  Type("x");
  Key(WXK_RETURN);
  Key('E', wxMOD_CONTROL);
  EXPECT_EQ(sent() + input().GetValue().ToStdString(), "");
}

// The about box closes by itself; here it is closed at once.
TEST_F(ZV_MainTest, AMessageBoxOutlivesTheAboutBoxAndAWishToClose) {
  Open();
  When([] { return IsActive("PromptBox") && Shown("ZV_Info"); },
       [this] {
         Shown("ZV_Info")->Close();
         form_->Close();
         Pump(50);
         EXPECT_TRUE(form_);
         Key(WXK_RETURN);
       });
  WxPrompts().Show(Icon::Critical, "?", {});
  EXPECT_TRUE(PumpUntil([this] { return !form_; }));
}

TEST_F(ZV_MainTest, TheBrowserOpensWhenTheConnectionIsAtRest) {
  const auto browser = [this] { Command(*form_, wxEVT_MENU, Menu_TSC); };
  const auto choose = [this] { Command(topics(), wxEVT_CHOICE, topics().GetId()); };
  const auto enter = [this] { Command(input(), wxEVT_TEXT_ENTER, input().GetId()); };
  const auto begin = [&](int wait) {
    if (wait > 1) Connect();
    link().silent = true;
    switch (wait) {
      case 0:  // chosen, and not yet being connected
        choose();
        browser();
        break;
      case 1:  // a connection gets no answer
        link().answersOpen = false;
        When([this] { return !proc().connection.PendingTopic.empty(); },
             [this, browser] {
               browser();
               Pump(100);
               EXPECT_FALSE(Shown("ZV_TSC"));
               constexpr int ticks = 200;  // more than a connection may take
               for (int tick = 0; tick < ticks; ++tick) proc().connection.Tick();
             });
        choose();
        break;
      case 2:  // entered, and not yet being sent
        enter();
        browser();
        break;
      default:  // a command gets no answer
        When([this] { return proc().status.Hourglass > 0; }, browser);
        enter();
    }
  };
  for (const int wait : {0, 1, 2, 3}) {
    Open();
    CloseAboutBox();
    bool opened = false;
    When([] { return Shown("ZV_TSC") != nullptr && HasFocus("TreeView"); },
         [&] {
           opened = true;
           EXPECT_TRUE(proc().status.Hourglass == 0 && proc().status.Waiting.empty()) << wait;
           EXPECT_TRUE(proc().connection.CurrentTopic >= 0 || wait == 1) << wait;
           Shown("ZV_TSC")->Close();
         });
    begin(wait);
    EXPECT_TRUE(PumpUntil([&opened] { return opened; })) << wait;
    EXPECT_TRUE(PumpUntil([] { return Shown("ZV_TSC") == nullptr; }));
    TearDown();
  }
}

// A wait runs inside the event that began it, so actions during the wait are planned before it.
TEST_F(ZV_MainTest, KeysWorkWhileACommandWaitsForItsAnswer) {
  Open();
  Connect();
  link().silent = true;
  When([this] { return proc().status.Hourglass > 0; },
       [this] {
         Type("x");
         for (int i = 0; i < 4; ++i) Key(WXK_RETURN);
         EXPECT_LE(proc().status.Hourglass, 1) << "waits pile up on waits";
       });
  When([this] { return std::ranges::count(sent(), '\r') == 5; },
       [this] {
         form_->Close();  // ends the wait first
         EXPECT_TRUE(form_);
       });
  Type("one");
  Key(WXK_RETURN);
  EXPECT_TRUE(PumpUntil([this] { return !form_; }));
  EXPECT_EQ(sent().find('\r', 4), 8U);  // the first command, followed by an "x"
}

TEST_F(ZV_MainTest, WhatIsTypedDuringTheWaitStays) {
  Open();
  Connect();
  link().silent = true;
  When([this] { return proc().status.Hourglass > 0; },
       [this] {
         Type("x");
         link().Say("svar");
       });
  Type("one");
  Key(WXK_RETURN);
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 1; }));
  EXPECT_EQ(input().GetValue().length(), 4U);
}

TEST_F(ZV_MainTest, AFloodOfLinesIsShownInBatches) {
  Open();
  Connect();
  int changes = 0;
  list().Changed = [&changes] { ++changes; };
  for (int i = 0; i < 100000; ++i) proc().log.Add("rad " + std::to_string(i));
  proc().status.Changed();
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 250; }));
  EXPECT_EQ(list().CurrentLine(), "rad 99999");
  proc().log.Add(std::string(5000, 'x'));
  proc().status.Changed();
  EXPECT_TRUE(PumpUntil([this] { return list().CurrentLine().size() == 5000; }));
  EXPECT_LE(list().ShownLine(proc().log.End() - 1).length(), LogList::kShownCharacters + 3);
  EXPECT_LE(changes, 4);
}

TEST_F(ZV_MainTest, TheLogIsSearchedAndMarkedWhileLinesCome) {
  Open();
  CloseAboutBox();
  const auto add = [this](int lines, const std::string& text) {
    for (int i = 0; i < lines; ++i) proc().log.Add(text + std::to_string(i));
    proc().status.Changed();
    EXPECT_TRUE(PumpUntil([this] { return list().Count() == proc().log.Lines().size(); }));
  };
  const auto place = [](const char* wanted) {
    return PumpUntil([wanted] { return Shown("Label_Found")->GetLabel() == wanted; });
  };
  const auto copied = [this] {
    Key('C', wxMOD_CONTROL);
    wxTextDataObject text;
    EXPECT_TRUE(wxTheClipboard->Open() && wxTheClipboard->GetData(text));
    wxTheClipboard->Close();
    return text.GetText();
  };
  add(2, "Hit");
  add(200, "rad ");
  Reach("Text_Find", [this] { Key('F', wxMOD_CONTROL); });
  Type("hit");
  EXPECT_TRUE(place("2 av 2"));
  const std::uint64_t top = list().Place().Top();
  EXPECT_EQ(top, proc().log.First());
  add(20, "hit");
  EXPECT_TRUE(place("2 av 22"));
  EXPECT_EQ(list().Place().Top(), top) << "the view moved by itself";
  Key(WXK_F3, wxMOD_SHIFT);
  EXPECT_TRUE(place("1 av 22"));
  add(29, "y");
  EXPECT_TRUE(place("0 av 21")) << "it has left the log";
  Key(WXK_F3);
  EXPECT_TRUE(place("1 av 21"));
  Key(WXK_ESCAPE);
  EXPECT_TRUE(Shown("Text_Find") == nullptr && list().HasFocus());
  Key(WXK_DOWN, wxMOD_SHIFT);
  EXPECT_EQ(wxTextBuffer::Translate(copied().BeforeLast('0'), wxTextFileType_Unix), "Hit1\nrad ");
  EXPECT_TRUE(Shown("Command_ToEnd"));
  Key(WXK_END);
  EXPECT_TRUE(list().Place().Follows() && Shown("Command_ToEnd") == nullptr);

  // With the mouse: from the second line that is seen to the first.
  const wxPoint corner = list().ClientToScreen(wxPoint(5, 2));
  const wxPoint row(0, list().GetCharHeight());
  wxUIActionSimulator mouse;
  mouse.MouseMove(corner + row);
  mouse.MouseDown();
  Pump(50);
  mouse.MouseMove(corner + row / 2);
  mouse.MouseMove(corner);
  Pump(50);
  mouse.MouseUp();
  Pump(50);
  EXPECT_EQ(copied().Freq('y'), 2);
  add(1, "z");
  EXPECT_FALSE(list().Place().Follows());
  Click(*Shown("Command_ToEnd"));
  EXPECT_TRUE(PumpUntil([this] { return list().CurrentLine() == "z0"; }));
}

TEST_F(ZV_MainTest, TheLogIsSavedOpenedAndEmptied) {
  Open();
  std::string path = world_->directory + "logg.txt";
  const auto saved = [&] { return world_->files.Read(path).bytes; };
  form_->AskFile = [&path](bool) { return path; };
  proc().log.Add("f\xF6rsta\t");
  proc().log.Add("andra");
  Command(*form_, wxEVT_MENU, Menu_Debug_Save);
  EXPECT_TRUE(PumpUntil([&] { return !saved().empty(); }));
  const std::string withoutTimes = "f\xF6rsta<9>\r\nandra\r\n";
  EXPECT_EQ(saved(), withoutTimes);
  for (const bool times : {true, false}) {
    form_->GetMenuBar()->Check(Menu_Log_Times, times);
    Command(*form_, wxEVT_MENU, Menu_Log_Times);
    Command(*form_, wxEVT_MENU, Menu_Debug_Save);
    const std::size_t more = times ? 2 * TimeBefore(SystemTime()).size() : 0;
    EXPECT_TRUE(PumpUntil([&] { return saved().size() == withoutTimes.size() + more; }));
    EXPECT_EQ(saved().starts_with("20"), times);
  }
  Command(*form_, wxEVT_MENU, Menu_Debug_Clear);
  EXPECT_TRUE(PumpUntil([this] { return proc().log.Lines().empty() && list().Count() == 0; }));
  std::string many;
  for (int i = 0; i < 1000; ++i) many += "rad\n";
  EXPECT_FALSE(world_->files.Write(path, many));
  Command(*form_, wxEVT_MENU, Menu_Debug_Open);
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 1000; }));
  EXPECT_TRUE(world_->prompts.shown.empty());
}

TEST_F(ZV_MainTest, EveryByteOfAReplyIsOneLineOnTheScreenAndInTheSavedLog) {
  Open();
  Connect();
  std::string path = world_->directory + "bytes.txt";
  form_->AskFile = [&path](bool) { return path; };
  std::size_t right = 0;
  for (const int first : {0, 128}) {  // the log holds 250 lines
    proc().log.Replace({});
    for (int code = first; code < first + 128; ++code) {
      // Character 10 ends a line, 255 a piece.
      const std::string byte = code == '\n' ? "" : std::string(1, static_cast<char>(code));
      link().Say(std::to_string(code) + ":" + byte + (code == 255 ? "0002>" : "") + "b");
    }
    const std::string last = std::to_string(first + 127) + ":";
    EXPECT_TRUE(
        PumpUntil([&] { return list().Count() == 128 && list().CurrentLine().starts_with(last); }));
    form_->ProcessWindowEvent(*std::make_unique<wxCommandEvent>(wxEVT_MENU, Menu_Debug_Save));
    std::istringstream saved(world_->files.Read(path).bytes);
    for (int code = first; code < first + 128; ++code) {
      std::string line;
      std::getline(saved, line);
      const std::string start = std::to_string(code) + ":";
      const bool one = line.starts_with(start) && line.ends_with("b\r") &&
                       list().ShownLine(proc().log.First() + code - first).StartsWith(start);
      EXPECT_TRUE(one) << code << ": " << line;
      if (one) ++right;
    }
    EXPECT_EQ(saved.peek(), std::istringstream::traits_type::eof());
  }
  std::cout << "figure: bytes of a reply that are one line on screen and in the saved log: "
            << right << " of 256\n";
}

TEST_F(ZV_MainTest, FileErrorsAreToldAndCancelDoesNothing) {
  Open();
  for (const std::string path : {"", "saknas/logg.txt"}) {
    form_->AskFile = [&](bool) { return path.empty() ? path : world_->directory + path; };
    for (const int id : {Menu_Debug_Save, Menu_Debug_Open}) {
      world_->prompts.shown.clear();
      form_->ProcessWindowEvent(*std::make_unique<wxCommandEvent>(wxEVT_MENU, id));
      const auto& shown = world_->prompts.shown;
      ASSERT_EQ(shown.size(), path.empty() ? 0U : 1U);
      if (!path.empty()) {
        EXPECT_NE(shown.front().find(path), std::string::npos);
      }
    }
  }
}

TEST_F(ZV_MainTest, TheSelectionFollowsTheConnection) {
  Open();
  Connect(1);
  EXPECT_TRUE(form_->GetToolBar()->GetToolEnabled(Menu_Disconnect));
  Command(*form_, wxEVT_MENU, Menu_Disconnect);
  EXPECT_TRUE(PumpUntil([this] { return topics().GetSelection() == wxNOT_FOUND; }));
  EXPECT_EQ(proc().connection.CurrentTopic, -1);
  EXPECT_FALSE(input().IsEnabled());
  EXPECT_FALSE(form_->GetToolBar()->GetToolEnabled(Menu_Disconnect));
  link().answersOpen = false;
  bool shownEarly = false;
  When([this] { return topics().GetSelection() == 0; },
       [&] {
         shownEarly = proc().connection.CurrentTopic == -1;
         Command(*form_, wxEVT_MENU, Menu_Disconnect);  // ends the wait for the connection
       });
  Command(topics(), wxEVT_CHOICE, topics().GetId());  // item 0
  EXPECT_TRUE(PumpUntil([&] { return shownEarly; }));
  EXPECT_TRUE(PumpUntil([this] { return topics().GetSelection() == wxNOT_FOUND; }));
}

TEST_F(ZV_MainTest, EverythingGoesByKeyboard) {
  Open();
  Key(WXK_ESCAPE);  // closes the about box
  EXPECT_TRUE(PumpUntil([] { return Shown("ZV_Info") == nullptr; }));
  Key('F', wxMOD_ALT);
  EXPECT_TRUE(PumpUntil([this] { return topics().HasFocus(); }));
  Key(WXK_DOWN);
  EXPECT_TRUE(PumpUntil([this] { return input().HasFocus(); }));
  Key('E', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 1; }));
  list().SetFocus();
  Pump(50);
  Key(WXK_RETURN);  // chooses the selected line
  EXPECT_TRUE(PumpUntil([this] { return input().GetValue() == "ZEK1" && input().HasFocus(); }));
  Key('L', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([this] { return list().Count() == 0; }));
  Key('D', wxMOD_CONTROL);
  EXPECT_TRUE(PumpUntil([this] { return proc().connection.CurrentTopic == -1; }));
}

TEST_F(ZV_MainTest, StartDialogConnectsOrIsRefused) {
  Open("/dialog:skola");
  CloseAboutBox();
  EXPECT_TRUE(PumpUntil([this] { return input().HasFocus(); }));
  EXPECT_EQ(form_->GetStatusBar()->GetStatusText(0), "Skolan (SKOLA)");
  form_->Close();
  EXPECT_TRUE(PumpUntil([this] { return !form_; }));
  for (const char* const unknown : {"/DIALOG:NIX", "/TOPIC:NIX", "/TAG:nix /TOPIC:SKOLA"}) {
    Open(unknown);
    ASSERT_EQ(world_->prompts.shown.size(), 1U);
    EXPECT_TRUE(world_->prompts.shown[0].starts_with("i Ogiltig Topic 'NIX'!"));
    EXPECT_TRUE(form_->IsShown());
    form_->Close();
    EXPECT_TRUE(PumpUntil([this] { return !form_; }));
  }
}

TEST_F(ZV_MainTest, StartTopicOpensTheBrowserAndItsEndTheProgram) {
  Begin("/TOPIC:SKOLA");
  When([] { return Shown("ZV_TSC") != nullptr; },
       [this] {
         EXPECT_FALSE(form_->IsShown());
         form_->Close();  // is delayed, since the browser's loop runs inside a handler
         EXPECT_TRUE(form_);
         Shown("ZV_TSC")->Close();
       });
  EXPECT_TRUE(PumpUntil([this] { return !form_; }));
  EXPECT_TRUE(world_->turn.Quitting());
}

}  // namespace
}  // namespace zek::window
