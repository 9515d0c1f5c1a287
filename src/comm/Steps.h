#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <utility>

namespace zek {

/// The rest of opening or closing a link, in order. Each step waits until something has happened,
/// at most for a time, and then acts. Ticks take the steps too: they go on while a message box or
/// another window holds the wait that began them.
class Steps {
 public:
  using Condition = std::function<bool()>;
  using Action = std::function<void()>;

  /// Adds a step that waits until `over()`, at most that many seconds; its time begins when the
  /// steps before it are done. The action may add and clear steps, and may run events.
  void Add(double seconds, Condition over, Action act);

  /// Adds a step that waits that many seconds.
  void After(double seconds, Action act) {
    Add(
        seconds, [] { return false; }, std::move(act));
  }

  bool AnyLeft() const { return !left_.empty(); }
  void Clear() { left_.clear(); }

  /// Takes the steps that are due.
  void Take();
  /// Takes all steps without waiting.
  void TakeAll();
  /// Counts the time of the first step down by one tick.
  void Tick();

 private:
  struct Step {
    std::int16_t ticks;
    Condition over;
    Action act;
  };

  void TakeFirst();

  std::deque<Step> left_;
};

}  // namespace zek
