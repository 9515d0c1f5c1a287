#pragma once

#include <functional>

namespace zek {

/// The event loop as the waits of the program see it. Anything may happen inside a turn: another
/// handler, a closed window, a lost link. State is therefore checked again after each.
class Turn {
 public:
  virtual ~Turn() = default;

  /// Handles the events that are pending and returns without resting.
  virtual void RunPending() = 0;

  /// Handles the events that are pending, then rests until an event or a tick came.
  virtual void Once() = 0;

  /// True when the program is ending: every wait then ends at once.
  virtual bool Quitting() const = 0;
};

/// The one wait of the program: turns go by while `condition()` holds.
template <class Condition>
void WaitWhile(Turn& turn, Condition condition) {
  while (!turn.Quitting() && condition()) turn.Once();
}

/// Posts a call to the program's event loop and returns at once; the calls run in their order.
using Later = std::function<void(std::function<void()> call)>;

}  // namespace zek
