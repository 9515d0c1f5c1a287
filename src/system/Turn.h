#pragma once

#include <functional>

namespace zek {

/// The event loop that the program's waits run. Anything may happen inside a turn: another handler
/// runs, a window closes, a link is lost. Callers check their state again after each turn.
class Turn {
 public:
  virtual ~Turn() = default;

  /// Handles the pending events and returns without waiting.
  virtual void RunPending() = 0;

  /// Handles the pending events, then waits for an event or a tick.
  virtual void Once() = 0;

  /// True if the program is ending: every wait then ends at once.
  virtual bool Quitting() const = 0;
};

/// Posts a call to the program's event loop and returns at once; calls run in the posted order.
using Later = std::function<void(std::function<void()> call)>;

}  // namespace zek
