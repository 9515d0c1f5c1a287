#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "system/Later.h"

namespace zek {

/// The IPv4 address in dots of a host that is given by its address already; nothing for a name.
std::optional<std::string> NumericAddress(const std::string& host);

/// The IPv4 address in dots of a host; nothing when it is unknown. Blocks while the system's
/// resolver asks, many seconds when no server answers; may be called from any thread.
std::optional<std::string> LookUpHost(const std::string& host);

/// Looks up the address of a host in a thread of its own, since the system's resolver blocks its
/// caller when nobody answers. Nobody waits for that thread, not even the end of the program: it
/// touches nothing but what it shares in here.
class HostLookup {
 public:
  /// From a host to its address in dots; runs in the thread.
  using Resolve = std::function<std::optional<std::string>(const std::string& host)>;
  using Done = std::function<void(const std::optional<std::string>& address)>;

  /// `later` is called from the thread, but not after `Cancel` or the end of this object.
  HostLookup(Resolve resolve, Later later);
  HostLookup(const HostLookup&) = delete;
  HostLookup& operator=(const HostLookup&) = delete;
  ~HostLookup() { Cancel(); }

  /// Begins, and forgets the lookup before; `done` comes through `later`. False when so many older
  /// ones still wait for an answer of the system that no further one is begun.
  bool Begin(const std::string& host, Done done);

  /// Forgets the lookup: its `done` is not called any more.
  void Cancel();

  static constexpr int kMostThreads = 16;

 private:
  struct Order;

  Resolve resolve_;
  Later later_;
  std::shared_ptr<Order> order_;  // of the lookup that is awaited
  std::shared_ptr<std::atomic<int>> threads_ = std::make_shared<std::atomic<int>>(0);
};

}  // namespace zek
