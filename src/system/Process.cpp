#include "system/Process.h"

#include <atomic>
#include <csignal>

namespace zek {
namespace {

// A global, since a signal handler receives nothing else; lock-free, to be safe in one.
std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void OnSignal(int number) {
  interrupted = true;
  std::signal(number, SIG_DFL);  // a second signal ends the program at once
}

}  // namespace

void CatchInterrupts() {
  std::signal(SIGINT, OnSignal);
  std::signal(SIGTERM, OnSignal);
#ifdef SIGHUP
  std::signal(SIGHUP, OnSignal);
#endif
}

bool Interrupted() { return interrupted; }

}  // namespace zek
