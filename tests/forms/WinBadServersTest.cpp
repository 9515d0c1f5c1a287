#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>

#include <wx/socket.h>

#include "BrowserFixture.h"
#include "app/StartSession.h"
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

enum class Help { Escape, Box };  // how the user gets out of a fetch

class BadServersTest : public testing::Test {
 protected:
  static constexpr int kSeen = 10;  // heartbeats: the windows are alive

  // Opens the browser and fetches, until the user gets out; the browser must be there then.
  void Fetch(
      const std::string& topic, const std::string& address, Help help,
      const std::function<void()>& recover = [] {}) {
    SCOPED_TRACE(topic + " " + address);
    const std::string ini = "[General]\nDialogMode=ALL\nGetTSCTimeout=5\nAlwaysUseDSS=yes\n" +
                            general_ + "[GetDelay]\nDelayA=0\nDelayB=0\nDelayD=0\n[Topics]\n" +
                            topic + "=YES,ZEK1," + address + ",Bad\n[" + topic +
                            "]\nAHU1=A/B/C;1\n";
    DiskFiles files;
    const test::TemporaryFolder folder;
    EXPECT_FALSE(files.Write(folder.Name() + "ZEKView.INI", ini));
    test::ScriptedPrompts ignored;  // messages about settings that a test left out
    SystemSession session(folder.Name(), folder.Name(), ignored);
    StartOptions options;
    options.chooseLanguage = [] { return true; };
    ASSERT_FALSE(StartSession(session.proc, options).has_value());
    LoadTopics(session.proc);
    WxPrompts boxes;
    const PromptsInstead boxesShown(session.proc.prompts, boxes);
    WxTick ticks([&session] { session.proc.Tick(); });
    ticks.Begin();
    Heartbeat heart;
    const auto busy = [&](int beats) {
      return session.proc.status.Busy > 0 && CancelOfBrowser().IsShownOnScreen() &&
             heart.beats >= beats;
    };
    std::vector<Step> steps{{InBrowser, [&] {
                               heart.beats = 0;
                               Press(WXK_F5);
                             }}};
    if (help == Help::Escape) {
      steps.push_back({[=] { return busy(kSeen); }, [] { Escape(); }});
      steps.push_back({[&heart] { return heart.beats >= 2 * kSeen; }, recover});
    } else {
      steps.push_back({[] { return IsActive("PromptBox"); }, [] { Press(WXK_RETURN); }});
    }
    steps.push_back({InBrowser, [] { Escape(); }});
    Play(std::move(steps));
    ShowBrowser(nullptr, session.proc, session.turn);
    EXPECT_EQ(session.proc.connection.CurrentTopic, -1);
    EXPECT_EQ(session.proc.status.Busy, 0);
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

}  // namespace
}  // namespace zek::window
