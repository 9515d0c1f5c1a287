#pragma once

#include <algorithm>
#include <cstdint>

#include "settings/Settings.h"
#include "system/Turn.h"

namespace zek {

/// The countdowns of the program in ticks of `Timer_Comm` (200 ms).
struct Countdowns {
  std::int16_t IdleCountdown = 0;   // to the automatic disconnection
  std::int16_t WaitCountdown = 0;   // wait for a first reply line or a confirmation
  std::int16_t DelayCountdown = 0;  // plain delay
  std::int16_t ReplyCountdown = 0;  // to the time-out of a catalogue transfer

  /// Counts all but `IdleCountdown` down by one; the connection counts that one. The waits of
  /// opening and closing a link have their own, see `Steps`.
  void Tick() {
    for (std::int16_t* const countdown : {&WaitCountdown, &DelayCountdown, &ReplyCountdown}) {
      if (*countdown > 0) --*countdown;
    }
  }
};

/// Converts seconds to ticks, limited to 0..32767 (a 16-bit countdown).
inline std::int16_t TicksOf(double seconds) {
  return static_cast<std::int16_t>(std::clamp(seconds * kTicksPerSecond, 0.0, 32767.0));
}

/// The waits of a session. All waits of the program go through `While`.
class Waits {
 public:
  Waits(Turn& turn, Countdowns& countdowns) : turn_(turn), countdowns_(countdowns) {}

  /// While such an object exists, the user may cancel: `Cancel` ends all waits until its end.
  class Cancellable {
   public:
    explicit Cancellable(Waits& waits) : waits_(waits) { ++waits_.cancellable_; }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;
    ~Cancellable() {
      --waits_.cancellable_;
      TakeBack();
    }

    /// Revokes a `Cancel`: later waits take place again.
    void TakeBack() { waits_.cancelled_ = false; }

   private:
    Waits& waits_;
  };

  bool CanCancel() const { return cancellable_ > 0; }
  /// Does nothing unless `CanCancel`.
  void Cancel() { cancelled_ = CanCancel(); }

  /// While such an object exists, waits take place although the user has cancelled or the program
  /// ends. Only for short waits that bring a dialogue to its end.
  class Finishing {
   public:
    explicit Finishing(Waits& waits) : waits_(waits) { ++waits_.finishing_; }
    Finishing(const Finishing&) = delete;
    Finishing& operator=(const Finishing&) = delete;
    ~Finishing() { --waits_.finishing_; }

   private:
    Waits& waits_;
  };

  /// True if the user has cancelled.
  bool Cancelled() const { return cancelled_; }

  bool Stopped() const { return cancelled_ || turn_.Quitting(); }

  template <class Condition>
  void While(Condition condition) {
    while ((finishing_ > 0 || !Stopped()) && condition()) turn_.Once();
  }

  /// Waits that many seconds, counted in ticks. Events run meanwhile.
  void WaitSeconds(std::int16_t seconds) {
    countdowns_.DelayCountdown = TicksOf(seconds);
    While([this] { return countdowns_.DelayCountdown > 0; });
  }

  void RunPending() { turn_.RunPending(); }

 private:
  Turn& turn_;
  Countdowns& countdowns_;
  int cancellable_ = 0;
  int finishing_ = 0;
  bool cancelled_ = false;
};

}  // namespace zek
