#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "comm/HostLookup.h"

namespace zek {
namespace {

// The event loop of these tests: posted calls wait until `Run`.
class Loop {
 public:
  Later Post() {
    return [this](std::function<void()> call) {
      calls_.push_back(std::move(call));
      posted_.set_value();
    };
  }
  void AwaitPosted() { posted_.get_future().wait(); }
  std::size_t Posted() const { return calls_.size(); }
  void Run() {
    for (const auto& call : std::exchange(calls_, {})) call();
  }

 private:
  std::vector<std::function<void()>> calls_;
  std::promise<void> posted_;
};

// A resolver that blocks until it is released, and reports when its thread has finished.
class SlowResolver {
 public:
  HostLookup::Resolve Get() {
    return [state = state_](const std::string& host) -> std::optional<std::string> {
      state->release.get_future().wait();
      return "192.0.2.1 for " + host;
    };
  }
  void Release() { state_->release.set_value(); }
  void AwaitEnd() {
    std::future<void> ended = state_->ended.get_future();
    state_.reset();
    ended.wait();
  }

 private:
  struct State {
    ~State() { ended.set_value(); }
    std::promise<void> release;
    std::promise<void> ended;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

TEST(HostLookup, TheCallerGoesOnWhileTheResolverStandsStill) {
  Loop loop;
  SlowResolver resolver;
  std::string address;
  HostLookup lookup(resolver.Get(), loop.Post());
  ASSERT_TRUE(lookup.Begin("duc", [&](const auto& found) { address = found.value_or("none"); }));
  EXPECT_EQ(loop.Posted(), 0U);
  resolver.Release();
  loop.AwaitPosted();
  EXPECT_EQ(address, "");  // not from inside the thread
  loop.Run();
  EXPECT_EQ(address, "192.0.2.1 for duc");
}

TEST(HostLookup, WhatWasCancelledIsNotToldAnyMore) {
  Loop loop;
  bool told = false;
  {
    HostLookup lookup([](const std::string&) { return std::nullopt; }, loop.Post());
    ASSERT_TRUE(lookup.Begin("duc", [&](const auto&) { told = true; }));
    loop.AwaitPosted();  // too late to cancel the thread's answer
  }
  loop.Run();
  EXPECT_FALSE(told);
}

TEST(HostLookup, AnAnswerAfterTheEndTouchesNothing) {
  SlowResolver resolver;
  {
    Loop loop;
    HostLookup lookup(resolver.Get(), loop.Post());
    ASSERT_TRUE(lookup.Begin("duc", [](const auto&) { FAIL(); }));
  }
  resolver.Release();
  resolver.AwaitEnd();
}

TEST(HostLookup, OnlySoManyThreadsStandStill) {
  Loop loop;
  std::promise<void> release;
  const std::shared_future<void> released = release.get_future().share();
  const auto resolve = [released](const std::string&) -> std::optional<std::string> {
    released.wait();
    return std::nullopt;
  };
  HostLookup lookup(resolve, loop.Post());
  for (int i = 0; i < HostLookup::kMostThreads; ++i) {
    ASSERT_TRUE(lookup.Begin("duc", [](const auto&) {}));
  }
  EXPECT_FALSE(lookup.Begin("duc", [](const auto&) {}));
  lookup.Cancel();
  release.set_value();
}

TEST(HostLookup, AnAddressNeedsNoLookup) {
  EXPECT_EQ(NumericAddress("127.0.0.1"), "127.0.0.1");
  EXPECT_EQ(NumericAddress("localhost"), std::nullopt);
  EXPECT_EQ(NumericAddress(""), std::nullopt);
  EXPECT_EQ(LookUpHost("localhost"), "127.0.0.1");
}

}  // namespace
}  // namespace zek
