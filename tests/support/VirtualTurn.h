#pragma once

#include <cstdint>
#include <functional>
#include <map>

#include "settings/Settings.h"
#include "system/LocalTime.h"
#include "system/Turn.h"

namespace zek::test {

/// Virtual time: a turn takes 10 ms; every 200 ms there is a tick; then all due actions run.
class VirtualTurn final : public Turn {
 public:
  std::function<void()> tick = [] {};

  std::int64_t Now() const { return now_; }  // milliseconds
  /// The time of day; a test begins at 2026-11-22 08:30:00.
  LocalTime Clock() const {
    constexpr int begin = 8 * 3600 + 30 * 60;
    const int seconds = begin + static_cast<int>(now_ / 1000);
    return {2026,
            11,
            22 + seconds / 86400,
            seconds / 3600 % 24,
            seconds / 60 % 60,
            seconds % 60,
            static_cast<int>(now_ % 1000)};
  }
  void After(std::int64_t milliseconds, std::function<void()> what) {
    due_.emplace(now_ + milliseconds, std::move(what));
  }
  /// Time goes by without a turn, as in a call that blocks.
  void Block(std::int64_t milliseconds) { now_ += milliseconds; }
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
