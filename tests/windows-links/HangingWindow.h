#pragma once

#include <windows.h>
#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace zek::test {

/// A window of a program that hangs for some seconds, or until the end of this object.
class HangingWindow {
 public:
  HangingWindow() {
    std::promise<void> shown;
    std::future<void> released = release_.get_future();
    thread_ = std::thread([this, &shown, released = std::move(released)] {
      auto* const window =
          ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
      shown.set_value();
      recovered_ = released.wait_for(std::chrono::seconds(10)) == std::future_status::timeout;
      ::DestroyWindow(window);
    });
    shown.get_future().wait();
  }
  HangingWindow(const HangingWindow&) = delete;
  HangingWindow& operator=(const HangingWindow&) = delete;
  ~HangingWindow() {
    release_.set_value();
    thread_.join();
  }

  bool HasRecovered() const { return recovered_; }

 private:
  std::atomic<bool> recovered_{false};
  std::promise<void> release_;
  std::thread thread_;
};

}  // namespace zek::test
