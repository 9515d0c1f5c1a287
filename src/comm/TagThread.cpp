#include "comm/TagThread.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace zek {
namespace {

constexpr std::chrono::milliseconds kRest{50};    // between two looks at the system's messages
constexpr std::chrono::minutes kLongestStart{2};  // of a tag server; the system's own limit

}  // namespace

struct TagThread::Shared {
  struct Order {
    Call call;
    Done done;
  };

  std::mutex mutex;  // guards all
  std::condition_variable changed;
  std::deque<Order> orders;
  Later later;  // empty: the thread must end
  bool ended = false;

  // Runs in the thread.
  void Serve(TagObject& object, const RunMessages& runMessages) {
    std::unique_lock lock(mutex);
    while (later) {
      if (orders.empty()) {
        changed.wait_for(lock, kRest);
        lock.unlock();
        runMessages();
        lock.lock();
        continue;
      }
      const Order order = std::move(orders.front());
      orders.pop_front();
      lock.unlock();
      TagAnswer answer;
      order.call(object, answer);
      if (answer.fault.empty()) answer.fault = object.TakeFault();
      answer.arrived = true;
      lock.lock();
      if (later) later([done = order.done, answer = std::move(answer)] { done(answer); });
    }
  }
};

TagThread::TagThread(Make make, RunMessages runMessages, Later later,
                     std::chrono::milliseconds longestEnd)
    : make_(std::move(make)),
      runMessages_(std::move(runMessages)),
      later_(std::move(later)),
      longestEnd_(longestEnd) {}

TagThread::~TagThread() {
  if (!shared_) return;
  std::unique_lock lock(shared_->mutex);
  shared_->later = nullptr;
  shared_->changed.notify_all();
  shared_->changed.wait_for(lock, longestEnd_, [this] { return shared_->ended; });
}

bool TagThread::Started() {
  if (shared_) return true;
  auto shared = std::make_shared<Shared>();
  shared->later = later_;
  try {
    std::thread([shared, make = make_, runMessages = runMessages_] {
      {
        const std::unique_ptr<TagObject> object = make();
        shared->Serve(*object, runMessages);
      }
      const std::lock_guard lock(shared->mutex);
      shared->ended = true;
      shared->changed.notify_all();
    }).detach();
  } catch (const std::system_error&) {
    return false;
  }
  shared_ = std::move(shared);
  return true;
}

TagAnswer TagThread::Create() {
  const auto made = std::make_shared<std::promise<TagAnswer>>();
  std::future<TagAnswer> answer = made->get_future();
  Begin(
      [made](TagObject& object, TagAnswer& created) {
        created = {true, object.Create() ? std::int16_t{1} : std::int16_t{0}, {}, {}};
        created.fault = object.TakeFault();
        made->set_value(created);
      },
      [](const TagAnswer&) {});
  const auto end = std::chrono::steady_clock::now() + kLongestStart;
  while (shared_ && std::chrono::steady_clock::now() < end) {
    if (answer.wait_for(kRest) == std::future_status::ready) return answer.get();
    runMessages_();  // an object that may live only in the program's first thread is made there
  }
  return {};
}

void TagThread::Begin(Call call, Done done) {
  if (!Started()) return later_([done = std::move(done)] { done({true, 0, {}, {}}); });
  const std::lock_guard lock(shared_->mutex);
  shared_->orders.push_back({std::move(call), std::move(done)});
  shared_->changed.notify_all();
}

}  // namespace zek
