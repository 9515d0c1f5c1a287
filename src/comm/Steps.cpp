#include "comm/Steps.h"

#include "comm/Countdowns.h"

namespace zek {

void Steps::Add(double seconds, Condition over, Action act) {
  left_.push_back({TicksOf(seconds), std::move(over), std::move(act)});
}

void Steps::Take() {
  while (AnyLeft() && (left_.front().ticks == 0 || left_.front().over())) TakeFirst();
}

void Steps::TakeAll() {
  while (AnyLeft()) TakeFirst();
}

void Steps::Tick() {
  if (AnyLeft() && left_.front().ticks > 0) --left_.front().ticks;
}

void Steps::TakeFirst() {
  const Step step = std::move(left_.front());
  left_.pop_front();
  step.act();
}

}  // namespace zek
