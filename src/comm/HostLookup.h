#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "system/Turn.h"

namespace zek {

/// Returns the dotted IPv4 address if `host` is one; nothing for a name.
std::optional<std::string> NumericAddress(const std::string& host);

/// Returns the dotted IPv4 address of a host; nothing for an unknown host. Blocks during the
/// system's lookup, for many seconds if no name server answers. Thread-safe.
std::optional<std::string> LookUpHost(const std::string& host);

/// Looks up the address of a host in a separate thread, because the system's lookup blocks while
/// no name server answers. The thread is never joined, not even at the end of the program, so it
/// uses only data that it shares with this class.
class HostLookup {
 public:
  /// Returns the dotted address of a host; runs in the thread.
  using Resolve = std::function<std::optional<std::string>(const std::string& host)>;
  using Done = std::function<void(const std::optional<std::string>& address)>;

  /// The thread calls `later`, but never after `Cancel` or the destructor.
  HostLookup(Resolve resolve, Later later);
  HostLookup(const HostLookup&) = delete;
  HostLookup& operator=(const HostLookup&) = delete;
  ~HostLookup() { Cancel(); }

  /// Starts a lookup and cancels the previous one; `later` posts the call of `done`. Returns false
  /// if `kMostThreads` older lookups still block, or if no thread can be started.
  bool Begin(const std::string& host, Done done);

  /// Cancels the lookup: its `done` is not called any more.
  void Cancel();

  static constexpr int kMostThreads = 16;

 private:
  struct Order;

  Resolve resolve_;
  Later later_;
  std::shared_ptr<Order> order_;  // the current lookup
  std::shared_ptr<std::atomic<int>> threads_ = std::make_shared<std::atomic<int>>(0);
};

}  // namespace zek
