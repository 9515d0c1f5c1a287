#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <utility>
#include <vector>

#include "system/Turn.h"

namespace zek::test {

/// The event loop of a test with threads: posted calls wait until `Run`.
class PostedCalls {
 public:
  Later Post() {
    return [this](std::function<void()> call) {
      const std::lock_guard lock(mutex_);
      calls_.push_back(std::move(call));
      changed_.notify_all();
    };
  }
  bool IsEmpty() {
    const std::lock_guard lock(mutex_);
    return calls_.empty();
  }
  void Await() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !calls_.empty(); });
  }
  /// Runs what was posted, at least one call.
  void Run() {
    Await();
    std::unique_lock lock(mutex_);
    const auto calls = std::exchange(calls_, {});
    lock.unlock();
    for (const auto& call : calls) call();
  }

 private:
  std::mutex mutex_;  // guards all
  std::condition_variable changed_;
  std::vector<std::function<void()>> calls_;
};

}  // namespace zek::test
