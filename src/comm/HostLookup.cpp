#include "comm/HostLookup.h"

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace zek {

/// What the thread and the object that began it share.
struct HostLookup::Order {
  std::mutex mutex;  // for `later`
  Later later;       // none: nobody awaits the answer any more
  Done done;         // not the thread's
};

HostLookup::HostLookup(Resolve resolve, Later later)
    : resolve_(std::move(resolve)), later_(std::move(later)) {}

bool HostLookup::Begin(const std::string& host, Done done) {
  Cancel();
  if (*threads_ >= kMostThreads) return false;
  auto order = std::make_shared<Order>();
  order->later = later_;
  order->done = std::move(done);
  const auto answer = [](const std::shared_ptr<Order>& asked, std::optional<std::string> address) {
    const std::lock_guard lock(asked->mutex);
    if (!asked->later) return;
    asked->later([asked, address = std::move(address)] {
      // It may begin the next lookup, or end this object.
      if (const Done call = std::exchange(asked->done, nullptr)) call(address);
    });
  };
  ++*threads_;
  try {
    std::thread([host, order, answer, resolve = resolve_, threads = threads_] {
      answer(order, resolve(host));
      --*threads;
    }).detach();
  } catch (const std::system_error&) {
    --*threads_;
    return false;
  }
  order_ = std::move(order);
  return true;
}

void HostLookup::Cancel() {
  const std::shared_ptr<Order> order = std::exchange(order_, nullptr);
  if (!order) return;
  const std::lock_guard lock(order->mutex);
  order->later = nullptr;
  order->done = nullptr;
}

}  // namespace zek
