#include <windows.h>

#include <ddeml.h>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <vector>

#include "comm/WinDdeTransport.h"
#include "lang/TextNumbers.h"
#include "windows-links/HangingWindow.h"
#include "windows-links/ServerProcess.h"

namespace zek {
namespace {

constexpr const char* kService = "ZEKDOUBLE";
constexpr const char* kNetService = R"(\\PLANT2\NDDE$)";
constexpr ULONGLONG kLongestWait = 20'000;  // ms, enough for a busy machine

class WinDdeTransportTest : public ::testing::Test, protected TransportEvents {
 protected:
  static void SetUpTestSuite() {
    Server() = std::make_unique<test::ServerProcess>(
        "zekview-dde-double.exe", std::vector<std::string>{kService, kNetService});
  }
  static void TearDownTestSuite() { Server().reset(); }

  WinDdeTransportTest() { link.Attach(this); }

  // Handles messages and, unless `deaf`, what was posted, until the condition holds.
  template <class Condition>
  bool Await(Condition condition, bool deaf = false) {
    const ULONGLONG end = ::GetTickCount64() + kLongestWait;
    while (!condition()) {
      if (::GetTickCount64() > end) return false;
      ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
      for (MSG message; ::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
        ::DispatchMessageA(&message);
      }
      while (const std::function<void()> call = deaf ? nullptr : NextPosted()) call();
    }
    return true;
  }

  void OpenAndAwait(const std::string& topic) {
    link.Open({kService, topic});
    EXPECT_EQ(events.size(), 0U) << "no event inside Open";
    ASSERT_TRUE(Await([this] { return !events.empty(); })) << topic;
    ASSERT_EQ(events.front(), "0000><TRANSPARENT>");
    ASSERT_EQ(link.State(), LinkState::Connected);
    events.clear();
  }

  bool AwaitEvent() {
    return Await([this] { return !events.empty(); });
  }

  std::function<void()> NextPosted() {
    const std::lock_guard lock(mutex);
    if (posted.empty()) return nullptr;
    std::function<void()> call = std::move(posted.front());
    posted.pop_front();
    return call;
  }

  std::mutex mutex;  // guards `posted`
  std::deque<std::function<void()>> posted;
  std::vector<std::string> events;  // texts; "closed"; "error" and the text number
  std::function<void()> onText = [] {};
  WinDdeTransport link{[this](std::function<void()> call) {
    const std::lock_guard lock(mutex);
    posted.push_back(std::move(call));
  }};

 private:
  static std::unique_ptr<test::ServerProcess>& Server() {
    static std::unique_ptr<test::ServerProcess> server;
    return server;
  }

  void OnLinkText(std::string_view bytes) override {
    events.emplace_back(bytes);
    onText();
  }
  void OnLinkClosed() override {
    EXPECT_EQ(link.State(), LinkState::Closed);
    events.emplace_back("closed");
  }
  void OnLinkError(const LinkFault& fault) override {
    EXPECT_EQ(link.State(), LinkState::Closed);
    events.push_back("error " + std::to_string(fault.textNumber));
  }
};

std::string Error(std::int32_t number) { return "error " + std::to_string(number); }

TEST_F(WinDdeTransportTest, TextGoesBothWays) {
  OpenAndAwait("GOOD");
  const std::string bytes = "\x05\xE5\xE4\xF6\x80\xFF";
  EXPECT_TRUE(link.Send(bytes));
  EXPECT_TRUE(link.Send("{13}"));
  EXPECT_FALSE(link.AllSent());
  EXPECT_TRUE(Await([this] { return events.size() == 2; }));
  EXPECT_EQ(events, (std::vector<std::string>{"0001>" + bytes + "\r\n", "0001>{13}\r\n"}));
  EXPECT_TRUE(Await([this] { return link.AllSent(); }));
}

TEST_F(WinDdeTransportTest, AComputersServiceIsANameLikeAnyOther) {
  link.Open({kNetService, "GOOD"});
  EXPECT_TRUE(AwaitEvent());
  EXPECT_EQ(events.front(), "0000><TRANSPARENT>");
}

TEST_F(WinDdeTransportTest, WhatCannotBeOpenedIsTold) {
  struct Case {
    LinkTarget target;
    std::int32_t number = 0;
  };
  const Case cases[] = {{{"NOBODY", "GOOD"}, text::kDdeNoServer},
                        {{kService, "UNKNOWN"}, text::kDdeNoServer},
                        {{kService, ""}, text::kDdeNoServer},
                        {{"", "GOOD"}, text::kDdeNoServer},
                        {{kService, std::string(300, 'x')}, text::kDdeNoServer},
                        {{kService, "NOADVISE"}, text::kDdeNoAdvise}};
  for (const Case& each : cases) {
    events.clear();
    link.Open(each.target);
    EXPECT_TRUE(events.empty());
    EXPECT_FALSE(link.Send("LIST"));
    ASSERT_TRUE(AwaitEvent()) << each.target.service;
    EXPECT_EQ(events, std::vector<std::string>{Error(each.number)}) << each.target.service;
  }
  events.clear();
  OpenAndAwait("GOOD");
}

TEST_F(WinDdeTransportTest, AServerThatSaysNothingLeavesTheLinkWithoutText) {
  link.Open({kService, "SILENT"});
  EXPECT_TRUE(Await([this] { return link.State() == LinkState::Connected; }));
  EXPECT_TRUE(link.AllSent());
  EXPECT_TRUE(events.empty());
}

TEST_F(WinDdeTransportTest, ARefusedPokeEndsTheLink) {
  for (const auto& [topic, number] :
       {std::pair("NOPOKE", text::kDdeRefused), std::pair("BUSY", text::kDdeBusy)}) {
    events.clear();
    OpenAndAwait(topic);
    EXPECT_TRUE(link.Send("LIST"));
    EXPECT_TRUE(link.Send("{13}"));
    EXPECT_TRUE(events.empty()) << "no event inside Send";
    ASSERT_TRUE(AwaitEvent()) << topic;
    // Not every system reports the reason.
    EXPECT_TRUE(events.front() == Error(number) || events.front() == Error(text::kDdeRefused));
    EXPECT_EQ(events.size(), 1U);
    EXPECT_FALSE(link.Send("LIST"));
  }
}

TEST_F(WinDdeTransportTest, AServerThatHangsUpIsToldAfterItsLastText) {
  OpenAndAwait("HANGUP");
  EXPECT_TRUE(link.Send("bye"));
  EXPECT_TRUE(Await([this] { return link.State() == LinkState::Closed; }));
  EXPECT_EQ(events, (std::vector<std::string>{"0001>bye\r\n", "closed"}));
  EXPECT_EQ(link.State(), LinkState::Closed);
}

TEST_F(WinDdeTransportTest, AServerThatDiesIsNoticed) {
  test::ServerProcess other("zekview-dde-double.exe", {"ZEKDOUBLE2"});
  link.Open({"ZEKDOUBLE2", "VANISH"});
  ASSERT_TRUE(AwaitEvent());
  events.clear();
  EXPECT_TRUE(link.Send("die"));
  EXPECT_TRUE(Await([this] { return link.State() == LinkState::Closed; }));
  EXPECT_EQ(events, std::vector<std::string>{"closed"});
  EXPECT_FALSE(link.Send("LIST"));
}

TEST_F(WinDdeTransportTest, EveryTextOfManyArrivesInOrder) {
  constexpr int kCount = 2000;
  OpenAndAwait("COUNT");
  EXPECT_TRUE(link.Send(std::to_string(kCount)));
  ASSERT_TRUE(Await([this] { return events.size() == kCount; }));
  for (int i = 0; i < kCount; ++i) ASSERT_EQ(events[i], "0001>" + std::to_string(i) + "\r\n");
}

TEST_F(WinDdeTransportTest, AFloodEndsTheLinkBeforeItFillsTheMemory) {
  OpenAndAwait("FLOOD");
  EXPECT_TRUE(link.Send("go"));
  EXPECT_TRUE(Await([this] { return !link.AllSent() && !link.Send("more"); }, true));
  ASSERT_TRUE(AwaitEvent());
  std::size_t total = 0;
  for (const std::string& text : events) total += text.size();
  EXPECT_LE(total, WinDdeTransport::kMostUnread + 20);
  EXPECT_EQ(events.back(), Error(text::kDdeFlooded));
  events.clear();
  OpenAndAwait("GOOD");
}

TEST_F(WinDdeTransportTest, PokesThatNobodyTakesAreBounded) {
  OpenAndAwait("SLOW");
  int taken = 0;
  while (taken <= WinDdeTransport::kMostOutstanding && link.Send(taken == 0 ? "sleep" : "x")) {
    ++taken;
  }
  EXPECT_EQ(taken, WinDdeTransport::kMostOutstanding);
  EXPECT_TRUE(Await([this] { return link.AllSent(); })) << "and the link is as good as before";
  EXPECT_TRUE(link.Send("x"));
}

TEST_F(WinDdeTransportTest, NothingIsToldOfALinkThatWasClosed) {
  OpenAndAwait("COUNT");
  EXPECT_TRUE(link.Send("100"));
  onText = [this] { link.Close(); };
  ASSERT_TRUE(AwaitEvent());
  EXPECT_EQ(link.State(), LinkState::Closed);
  onText = [] {};
  events.clear();
  OpenAndAwait("GOOD");
  EXPECT_TRUE(link.Send("last"));
  ASSERT_TRUE(AwaitEvent());
  EXPECT_EQ(events, std::vector<std::string>{"0001>last\r\n"});
}

TEST_F(WinDdeTransportTest, AProgramThatHangsDoesNotStopOurs) {
  {
    const test::HangingWindow window;
    link.Open({kService, "GOOD"});
    EXPECT_FALSE(window.HasRecovered()) << "Open waits for it";
  }
  EXPECT_TRUE(AwaitEvent());
  EXPECT_EQ(events, std::vector<std::string>{"0000><TRANSPARENT>"});
}

/// A server that calls back, in this process; the system treats it like one in another process.
class Caller {
 public:
  Caller() {
    const PFNCALLBACK nothing = [](UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR,
                                   ULONG_PTR) -> HDDEDATA { return nullptr; };
    ::DdeInitializeA(&instance_, nothing, APPCMD_CLIENTONLY, 0);
  }
  Caller(const Caller&) = delete;
  Caller& operator=(const Caller&) = delete;
  ~Caller() { ::DdeUninitialize(instance_); }

  bool Call(const char* topic, const char* item, std::string text) {
    auto* const conversation = ::DdeConnect(instance_, Name("ZEKView"), Name(topic), nullptr);
    if (conversation == nullptr) return false;
    DWORD flags = 0;
    auto* const done = ::DdeClientTransaction(reinterpret_cast<BYTE*>(text.data()),
                                              static_cast<DWORD>(text.size() + 1), conversation,
                                              Name(item), CF_TEXT, XTYP_POKE, 5000, &flags);
    ::DdeDisconnect(conversation);
    return done != nullptr && (flags & DDE_FACK) != 0;
  }

 private:
  HSZ Name(const char* text) { return ::DdeCreateStringHandleA(instance_, text, CP_WINANSI); }

  DWORD instance_ = 0;
};

TEST_F(WinDdeTransportTest, TheServerMayCallBackWhileTheLinkIsOpen) {
  Caller caller;
  OpenAndAwait("GOOD");
  EXPECT_TRUE(caller.Call("ZV_Main", "Text_CTServCallBack", "0007>called"));
  EXPECT_TRUE(events.empty()) << "not from inside the call";
  ASSERT_TRUE(AwaitEvent());
  EXPECT_EQ(events, std::vector<std::string>{"0007>called\n"});
  EXPECT_FALSE(caller.Call("ZV_Main", "Text_Input", "0007>no"));
  EXPECT_FALSE(caller.Call("ZV_TSC", "Text_CTServCallBack", "0007>no"));
  link.Close();
  EXPECT_FALSE(caller.Call("ZV_Main", "Text_CTServCallBack", "0007>late"));
}

TEST_F(WinDdeTransportTest, ATextEndsAtItsNulOrAtItsEnd) {
  OpenAndAwait("RAW");
  EXPECT_TRUE(link.Send("NUL"));
  EXPECT_TRUE(link.Send(std::string("cut\0here", 8)));
  ASSERT_TRUE(Await([this] { return events.size() == 2; }));
  EXPECT_EQ(events, (std::vector<std::string>{"0001>NUL\r\n", "0001>cut\r\n"}));
}

}  // namespace
}  // namespace zek
