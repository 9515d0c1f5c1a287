#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <memory>

#include "comm/HostLookup.h"
#include "support/PostedCalls.h"

namespace zek {
namespace {

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
  test::PostedCalls loop;
  SlowResolver resolver;
  std::string address;
  HostLookup lookup(resolver.Get(), loop.Post());
  ASSERT_TRUE(lookup.Begin("duc", [&](const auto& found) { address = found.value_or("none"); }));
  EXPECT_TRUE(loop.IsEmpty());
  resolver.Release();
  loop.Await();
  EXPECT_EQ(address, "");  // not from inside the thread
  loop.Run();
  EXPECT_EQ(address, "192.0.2.1 for duc");
}

TEST(HostLookup, WhatWasCancelledIsNotToldAnyMore) {
  test::PostedCalls loop;
  bool told = false;
  {
    HostLookup lookup([](const std::string&) { return std::nullopt; }, loop.Post());
    ASSERT_TRUE(lookup.Begin("duc", [&](const auto&) { told = true; }));
    loop.Await();  // too late to cancel the thread's answer
  }
  loop.Run();
  EXPECT_FALSE(told);
}

TEST(HostLookup, AnAnswerAfterTheEndTouchesNothing) {
  SlowResolver resolver;
  {
    test::PostedCalls loop;
    HostLookup lookup(resolver.Get(), loop.Post());
    ASSERT_TRUE(lookup.Begin("duc", [](const auto&) { FAIL(); }));
  }
  resolver.Release();
  resolver.AwaitEnd();
}

TEST(HostLookup, OnlySoManyThreadsStandStill) {
  test::PostedCalls loop;
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
