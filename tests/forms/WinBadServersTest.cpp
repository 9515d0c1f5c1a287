#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

#include <wx/socket.h>
#include <wx/weakref.h>

#include "BrowserFixture.h"
#include "app/StartSession.h"
#include "forms/main/ZV_Main.h"
#include "ui/WxPrompts.h"
#include "windows-links/HangingWindow.h"
#include "windows-links/TagRegistration.h"
#include "wxbase/SystemSession.h"

// The browser and servers that do not serve, over the links of the system, with real boxes.
namespace zek::window {
namespace {

/// A TCP/IP server that accepts, and says nothing or hangs up when it hears something.
class TcpServer final : public wxEvtHandler {
 public:
  explicit TcpServer(bool hangsUp) : hangsUp_(hangsUp) {
    Bind(wxEVT_SOCKET, &TcpServer::OnSocket, this);
    server_.SetEventHandler(*this);
    server_.SetNotify(wxSOCKET_CONNECTION_FLAG);
    server_.Notify(true);
  }

  std::string Address() const {
    wxIPV4address address;
    server_.GetLocal(address);
    return "127.0.0.1:" + std::to_string(address.Service());
  }

 private:
  static wxIPV4address AnyPort() {
    wxIPV4address address;
    address.LocalHost();
    address.Service(0);
    return address;
  }

  void OnSocket(wxSocketEvent& event) {
    wxSocketBase* const heard = event.GetSocket();
    if (event.GetSocketEvent() == wxSOCKET_INPUT) heard->Destroy();
    wxSocketBase* const client =
        event.GetSocketEvent() == wxSOCKET_CONNECTION ? server_.Accept(false) : nullptr;
    if (client == nullptr || !hangsUp_) return;
    client->SetEventHandler(*this);
    client->SetNotify(wxSOCKET_INPUT_FLAG);
    client->Notify(true);
    client->Write("<TRANSPARENT>", 13);
  }

  bool hangsUp_;
  wxSocketServer server_{AnyPort(), wxSOCKET_NOWAIT};
};

/// Counts while events run.
class Heartbeat final : public wxTimer {
 public:
  Heartbeat() { Start(20); }
  void Notify() override { ++beats; }
  int beats = 0;
};

/// The program with one controller, started; its message boxes are real.
struct Started {
  Started(const std::string& topic, const std::string& address, const std::string& general) {
    const std::string ini = "[General]\nDialogMode=ALL\nGetTSCTimeout=5\nAlwaysUseDSS=yes\n" +
                            general + "[GetDelay]\nDelayA=0\nDelayB=0\nDelayD=0\n[Topics]\n" +
                            topic + "=YES,ZEK1," + address + ",Bad\n[" + topic +
                            "]\nAHU1=A/B/C;1\n";
    EXPECT_FALSE(DiskFiles().Write(folder.Name() + "ZEKView.INI", ini));
    StartOptions options;
    options.chooseLanguage = [] { return true; };
    EXPECT_FALSE(StartSession(proc, options).has_value());
    LoadTopics(proc);
    boxesShown.emplace(proc.prompts, boxes);
  }

  test::TemporaryFolder folder;
  test::ScriptedPrompts ignored;  // messages about settings that a test left out
  SystemSession session{folder.Name(), folder.Name(), ignored};
  ZV_Proc& proc = session.proc;
  WxPrompts boxes;
  std::optional<PromptsInstead> boxesShown;
  Heartbeat heart;
};

constexpr int kSeen = 10;         // heartbeats: the windows are alive
enum class Help { Escape, Box };  // how the user gets out of a fetch

class BadServersTest : public testing::Test {
 protected:
  // Opens the browser and fetches, until the user gets out; the browser must be there then.
  void Fetch(
      const std::string& topic, const std::string& address, Help help,
      const std::function<void()>& recover = [] {}) {
    SCOPED_TRACE(topic + " " + address);
    Started program(topic, address, general_);
    int& beats = program.heart.beats;
    WxTick ticks([&program] { program.proc.Tick(); });
    ticks.Begin();
    std::vector<Step> steps{{InBrowser, [&beats] {
                               beats = 0;
                               Press(WXK_F5);
                             }}};
    if (help == Help::Escape) {
      const auto busy = [&] {
        return program.proc.status.Busy > 0 && CancelOfBrowser().IsShownOnScreen() &&
               beats >= kSeen;
      };
      steps.push_back({busy, [] { Escape(); }});
      steps.push_back({[&beats] { return beats >= 2 * kSeen; }, recover});
    } else {
      steps.push_back({[] { return IsActive("PromptBox"); }, [] { Press(WXK_RETURN); }});
    }
    steps.push_back({InBrowser, [] { Escape(); }});
    Play(std::move(steps));
    ShowBrowser(nullptr, program.proc, program.session.turn);
    EXPECT_EQ(program.proc.connection.CurrentTopic, -1);
    EXPECT_EQ(program.proc.status.Busy, 0);
  }

  std::string general_;
};

TEST_F(BadServersTest, OverTcp) {
  Fetch("MUTE", TcpServer(false).Address(), Help::Escape);
  Fetch("DYING", TcpServer(true).Address(), Help::Box);
}

TEST_F(BadServersTest, OverDde) {
  for (const char* const topic : {"SILENT", "NOPOKE", "HANGUP", "VANISH"}) {
    const test::ServerProcess server("zekview-dde-double.exe", {"ZEK"});
    const bool mute = topic == std::string("SILENT");
    Fetch(topic, "", mute ? Help::Escape : Help::Box);
  }
  const test::ServerProcess server("zekview-dde-double.exe", {"ZEK"});
  auto hanging = std::make_unique<test::HangingWindow>();
  Fetch("GOOD", "", Help::Escape, [&hanging] {
    EXPECT_FALSE(hanging->HasRecovered());
    hanging.reset();
  });
}

TEST_F(BadServersTest, OverTags) {
  const test::TagRegistration registration;
  HANDLE const release = ::CreateEventA(nullptr, TRUE, FALSE, "zekview-tag-release");
  general_ = "TagMode=YES\n";
  for (const char* const method : {"TagRead", "TagWrite", "Open"}) {
    ::ResetEvent(release);
    test::TagRegistration::Fault((std::string("block ") + method).c_str());
    Fetch("SKOLA", "", Help::Escape, [release] { ::SetEvent(release); });
  }
  test::TagRegistration::Fault("raise TagWrite");
  Fetch("SKOLA", "", Help::Box);
  ::CloseHandle(release);
}

TEST_F(BadServersTest, TheProgramEndsDuringATagCall) {
  const test::TagRegistration registration;
  HANDLE const release = ::CreateEventA(nullptr, TRUE, FALSE, "zekview-tag-release");
  Started program("SKOLA", "", "TagMode=YES\n");
  const wxWeakRef<ZV_Main> main(new ZV_Main(program.proc, program.session.turn));
  main->Show();
  EXPECT_TRUE(PumpUntil([] { return Shown("ZV_Info") != nullptr; }));
  Shown("ZV_Info")->Close();
  Command(*Shown("Combo_Topics"), wxEVT_CHOICE, Shown("Combo_Topics")->GetId());
  EXPECT_TRUE(PumpUntil([&] { return program.proc.connection.CurrentTopic == 0; }));
  test::TagRegistration::Fault("block TagWrite");
  Box("Text_Input").ChangeValue("LIST SDC");
  Command(Box("Text_Input"), wxEVT_TEXT_ENTER, Box("Text_Input").GetId());
  int& beats = program.heart.beats;
  beats = 0;
  Play({{[&beats] { return beats >= kSeen; }, [&main] { main->Close(); }},
        {[&beats] { return beats >= 2 * kSeen; }, [release] { ::SetEvent(release); }}});
  EXPECT_TRUE(PumpUntil([&main] { return !main; }));
  EXPECT_EQ(program.proc.topics[0].TagState, 0);
  ::CloseHandle(release);
}

}  // namespace
}  // namespace zek::window
