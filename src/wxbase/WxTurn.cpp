#include "wxbase/WxTurn.h"

#include <wx/app.h>
#include <wx/evtloop.h>

namespace zek {
namespace {
constexpr unsigned long kRestMilliseconds = kTickMilliseconds;  // a tick ends the wait anyway
constexpr int kMostAtOnce = 1000;  // events; a flood must not delay posted calls
}  // namespace

void WxTurn::RunPending() {
  wxAppConsole::GetInstance()->ProcessPendingEvents();
  wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
  for (int i = 0; i < kMostAtOnce && loop != nullptr && loop->Pending(); ++i) {
    if (!loop->Dispatch()) break;
    // A socket posts its event and stays readable until the event is handled. Without this, a
    // closed connection would be dispatched forever and its events would accumulate.
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
