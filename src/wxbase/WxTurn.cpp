#include "wxbase/WxTurn.h"

#include <wx/app.h>
#include <wx/evtloop.h>

namespace zek {
namespace {
constexpr unsigned long kRestMilliseconds = kTickMilliseconds;  // the next tick ends a rest anyway
constexpr int kMostAtOnce = 1000;  // events: a flood of them must not keep posted calls waiting
}  // namespace

void WxTurn::RunPending() {
  wxAppConsole::GetInstance()->ProcessPendingEvents();
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  for (int i = 0; i < kMostAtOnce && loop != nullptr && loop->Pending(); ++i) {
    if (!loop->Dispatch()) break;
    // A socket posts its event and stays readable until the event has been handled: without this
    // a peer that hangs up would be dispatched for ever, and its events would pile up.
    wxAppConsole::GetInstance()->ProcessPendingEvents();
  }
}

void WxTurn::Once() {
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  if (loop == nullptr) {
    quitting_ = true;
    return;
  }
  wxAppConsole::GetInstance()->ProcessPendingEvents();
  loop->DispatchTimeout(kRestMilliseconds);
  RunPending();
}

void WxTick::Begin(int milliseconds) { Start(milliseconds); }

void WxTick::Notify() {
  if (waiting_) return;
  waiting_ = true;
  posted_.CallAfter([this] {
    waiting_ = false;
    tick_();
  });
}

}  // namespace zek
