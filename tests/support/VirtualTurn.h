#pragma once

#include <cstdint>
#include <functional>
#include <map>

#include "settings/Settings.h"
#include "system/Turn.h"

namespace zek::test {

/// Virtual time: a turn takes 10 ms; every 200 ms there is a tick; then all due actions run.
class VirtualTurn final : public Turn {
 public:
  std::function<void()> tick = [] {};

  std::int64_t Now() const { return now_; }  // milliseconds
  void After(std::int64_t milliseconds, std::function<void()> what) {
    due_.emplace(now_ + milliseconds, std::move(what));
  }
  void Quit() { quitting_ = true; }

  void RunPending() override {
    while (!due_.empty() && due_.begin()->first <= now_) {
      const std::function<void()> what = std::move(due_.begin()->second);
      due_.erase(due_.begin());
      what();
    }
  }

  void Once() override {
    now_ += 10;
    if (now_ % kTickMilliseconds == 0) tick();
    RunPending();
    if (now_ > kLongestTest) quitting_ = true;  // an endless wait fails its test, not the whole run
  }

  bool Quitting() const override { return quitting_; }

 private:
  static constexpr std::int64_t kLongestTest = 24LL * 3600 * 1000;

  std::int64_t now_ = 0;
  std::multimap<std::int64_t, std::function<void()>> due_;
  bool quitting_ = false;
};

}  // namespace zek::test
