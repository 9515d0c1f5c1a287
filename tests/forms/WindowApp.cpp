#include "WindowApp.h"

#include <chrono>
#include <gtest/gtest.h>
#include <memory>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/fileconf.h>
#include <wx/sstream.h>
#include <wx/timer.h>

namespace zek::window {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::seconds(30);

void RunEvents() {
  wxTheApp->ProcessPendingEvents();
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop->DispatchTimeout(5) == 1) {
    while (loop->Pending() && loop->Dispatch()) {
    }
  }
  wxTheApp->ProcessPendingEvents();
  wxTheApp->ProcessIdle();  // deletes closed windows
}

const testing::TestInfo* CurrentTest() {
  return testing::UnitTest::GetInstance()->current_test_info();
}

// The shown windows and the one with the focus, for the message of a failure.
std::string WhatIsShown() {
  std::string shown = "shown:";
  for (const wxWindow* const window : wxTopLevelWindows)
    if (window->IsShown()) shown.append(" ").append(window->GetName().ToStdString());
  const wxWindow* const focus = wxWindow::FindFocus();
  return shown + "; focus: " + (focus != nullptr ? focus->GetName().ToStdString() : "none");
}

// Ends the modal loops of a failed test, which would go on for ever.
void CloseForms() {
  for (wxWindow* const window : wxTopLevelWindows)
    if (window->IsShown()) window->CallAfter([window] { window->Close(true); });
}

class Watch final : public wxTimer {
 public:
  Watch(std::function<bool()> condition, std::function<void()> action)
      : condition_(std::move(condition)),
        action_(std::move(action)),
        end_(Clock::now() + kPatience) {
    Start(10);
  }

 private:
  void Notify() override {
    if (test_ != CurrentTest()) return Finish();
    const bool holds = condition_();
    if (!holds && Clock::now() < end_) return;
    EXPECT_TRUE(holds) << "what a test waited for did not happen; " << WhatIsShown();
    if (!holds) CloseForms();
    // The action may run its own event loop, in which the timer is deleted. So it must neither run
    // inside the timer nor belong to it.
    if (holds) {
      wxTheApp->CallAfter([test = test_, action = action_] {
        if (test == CurrentTest()) action();
      });
    }
    Finish();
  }

  void Finish() {
    Stop();
    wxTheApp->CallAfter([this] { delete this; });
  }

  // Actions that a finished test left over must not run in the next test.
  const testing::TestInfo* test_ = CurrentTest();
  std::function<bool()> condition_;
  std::function<void()> action_;
  Clock::time_point end_;
};

}  // namespace

bool PumpUntil(const std::function<bool()>& condition) {
  const auto end = Clock::now() + kPatience;
  while (!condition()) {
    if (Clock::now() > end) return false;
    RunEvents();
  }
  return true;
}

void Pump(int milliseconds) {
  const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
  while (Clock::now() < end) RunEvents();
}

void When(std::function<bool()> condition, std::function<void()> action) {
  new Watch(std::move(condition), std::move(action));  // deletes itself
}

wxWindow* Shown(const std::string& name) {
  wxWindow* const window = wxWindow::FindWindowByName(name);
  return window != nullptr && window->IsShownOnScreen() ? window : nullptr;
}

void Command(wxWindow& window, wxEventType type, int id) {
  auto event = std::make_unique<wxCommandEvent>(type, id);
  event->SetEventObject(&window);
  window.GetEventHandler()->QueueEvent(event.release());
}

namespace {

class TestApp final : public wxApp {
 public:
  bool OnInit() override { return true; }

  // NOLINTBEGIN(clang-analyzer-cplusplus.NewDeleteLeaks): the toolkit keeps the configuration
  int OnRun() override {
    SetExitOnFrameDelete(false);
    wxStringInputStream nothing{wxString()};
    wxConfigBase::Set(std::make_unique<wxFileConfig>(nothing).release());  // the toolkit's own
    CallAfter([this] {
      result_ = RUN_ALL_TESTS();
      ExitMainLoop();
    });
    wxApp::OnRun();
    return result_;
  }
  // NOLINTEND(clang-analyzer-cplusplus.NewDeleteLeaks)

  void OnAssertFailure(const wxChar* file, int line, const wxChar* /*function*/,
                       const wxChar* condition, const wxChar* message) override {
    ADD_FAILURE() << wxString(file) << ":" << line << ": " << wxString(condition) << " "
                  << wxString(message);
  }

 private:
  int result_ = 1;
};

}  // namespace
}  // namespace zek::window

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();  // the build has no display
  wxApp::SetInstance(std::make_unique<zek::window::TestApp>().release());  // the toolkit's own
  return wxEntry(argc, argv);
}
