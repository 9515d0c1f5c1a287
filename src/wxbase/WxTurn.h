#pragma once

#include <functional>

#include <wx/event.h>
#include <wx/timer.h>

#include "settings/Settings.h"
#include "system/Process.h"
#include "system/Turn.h"

namespace zek {

/// The real event loop, with or without a window. Waits must start from inside a running loop.
class WxTurn final : public Turn {
 public:
  void RunPending() override;
  void Once() override;
  bool Quitting() const override { return quitting_ || Interrupted(); }

  /// Ends every wait, now and from now on.
  void Quit() { quitting_ = true; }

 private:
  bool quitting_ = false;
};

/// `Timer_Comm` and `Timer_Batch`: calls `tick` at its interval, also inside waits. The call is
/// posted as an event: a handler that waits inside the timer's own call would stop the timer.
class WxTick final : public wxTimer {
 public:
  explicit WxTick(std::function<void()> tick) : tick_(std::move(tick)) {}
  void Begin(int milliseconds = kTickMilliseconds);

 private:
  void Notify() override;

  std::function<void()> tick_;
  wxEvtHandler posted_;
  bool waiting_ = false;  // a posted call has not begun yet: no second one piles up behind it
};

/// Posts calls to the event loop as long as it lives; what is still posted then never runs.
class WxLater {
 public:
  Later Post() {
    return [this](const std::function<void()>& call) { handler_.CallAfter(call); };
  }

 private:
  wxEvtHandler handler_;
};

}  // namespace zek
