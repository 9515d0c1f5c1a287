#pragma once

#include <functional>

#include <wx/event.h>
#include <wx/timer.h>

#include "settings/Settings.h"
#include "system/Process.h"
#include "system/Turn.h"

namespace zek {

/// The toolkit's event loop, with or without windows. Waits must start inside a running loop.
class WxTurn final : public Turn {
 public:
  void RunPending() override;
  void Once() override;
  bool Quitting() const override { return quitting_ || Interrupted(); }

  /// Ends all waits, current and future.
  void Quit() { quitting_ = true; }

 private:
  bool quitting_ = false;
};

/// `Timer_Comm` and `Timer_Batch`: calls `tick` at the given interval, also during waits. The call
/// is posted as an event: a wait inside the timer's own handler would stop the timer.
class WxTick final : public wxTimer {
 public:
  explicit WxTick(std::function<void()> tick) : tick_(std::move(tick)) {}
  void Begin(int milliseconds = kTickMilliseconds);

 private:
  void Notify() override;

  std::function<void()> tick_;
  wxEvtHandler posted_;
  bool waiting_ = false;  // a posted call has not started: do not post another
};

/// Posts calls to the event loop. Calls still pending when it is destroyed never run.
class WxLater {
 public:
  Later Post() {
    return [this](const std::function<void()>& call) { handler_.CallAfter(call); };
  }

 private:
  wxEvtHandler handler_;
};

}  // namespace zek
