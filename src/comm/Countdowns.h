#pragma once

#include <algorithm>
#include <cstdint>

#include "settings/Settings.h"
#include "system/Turn.h"

namespace zek {

/// The countdowns of the program in ticks of `Timer_Comm` (200 ms).
struct Countdowns {
  std::int16_t IdleCountdown = 0;          // until the automatic disconnection
  std::int16_t WaitCountdown = 0;          // of a connect, close or first-answer wait
  std::int16_t AfterConnectCountdown = 0;  // of the pause after a TCP/IP connection was made
  std::int16_t DelayCountdown = 0;         // of a plain delay
  std::int16_t ReplyCountdown = 0;         // until a catalogue transfer gives up

  /// Counts all of them but `IdleCountdown` down by one; that one belongs to the connection.
  void Tick() {
    for (std::int16_t* const countdown :
         {&WaitCountdown, &AfterConnectCountdown, &DelayCountdown, &ReplyCountdown}) {
      if (*countdown > 0) --*countdown;
    }
  }
};

/// Seconds as ticks; what a 16-bit countdown can't hold gives the longest one, below 0 gives 0.
inline std::int16_t TicksOf(double seconds) {
  return static_cast<std::int16_t>(std::clamp(seconds * kTicksPerSecond, 0.0, 32767.0));
}

/// The waits of a session.
class Waits {
 public:
  Waits(Turn& turn, Countdowns& countdowns) : turn_(turn), countdowns_(countdowns) {}

  /// While one lives, the user may cancel what is going on: `Cancel` ends all waits until it goes.
  class Cancellable {
   public:
    explicit Cancellable(Waits& waits) : waits_(waits) { ++waits_.cancellable_; }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;
    ~Cancellable() {
      --waits_.cancellable_;
      TakeBack();
    }

    /// The waits that follow are waited again.
    void TakeBack() { waits_.cancelled_ = false; }

   private:
    Waits& waits_;
  };

  bool CanCancel() const { return cancellable_ > 0; }
  /// Does nothing when there is nothing that can be cancelled.
  void Cancel() { cancelled_ = CanCancel(); }

  bool Stopped() const { return cancelled_ || turn_.Quitting(); }

  template <class Condition>
  void While(Condition condition) {
    WaitWhile(turn_, [&] { return !cancelled_ && condition(); });
  }

  /// Waits that many seconds, counted in ticks, while events run.
  void WaitSeconds(std::int16_t seconds) {
    countdowns_.DelayCountdown = TicksOf(seconds);
    While([this] { return countdowns_.DelayCountdown > 0; });
  }

  void RunPending() { turn_.RunPending(); }

 private:
  Turn& turn_;
  Countdowns& countdowns_;
  int cancellable_ = 0;
  bool cancelled_ = false;
};

}  // namespace zek
