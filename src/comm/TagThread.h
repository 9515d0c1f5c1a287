#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "comm/TagServer.h"
#include "system/Turn.h"

namespace zek {

/// The tag object in a thread of its own, because its calls block. The object is created, used and
/// destroyed there. The thread is never joined, since a call may never return, so it uses only data
/// that it shares with this class.
class TagThread : public TagServer {
 public:
  /// Makes the object; runs in the thread.
  using Make = std::function<std::unique_ptr<TagObject>()>;
  /// Handles the system's messages to the calling thread: the object may need that between calls.
  using RunMessages = std::function<void()>;

  /// The first call starts the thread, which posts the answers with `later`. The destructor waits
  /// for the object's end, at most so long.
  TagThread(Make make, RunMessages runMessages, Later later,
            std::chrono::milliseconds longestEnd = std::chrono::seconds{2});
  TagThread(const TagThread&) = delete;
  TagThread& operator=(const TagThread&) = delete;
  /// Drops the calls that have not begun. A call that still blocks ends with the process.
  ~TagThread() override;

  TagAnswer Create() override;
  void Begin(Call call, Done done) override;

 private:
  struct Shared;

  bool Started();

  Make make_;
  RunMessages runMessages_;
  Later later_;
  std::chrono::milliseconds longestEnd_;
  std::shared_ptr<Shared> shared_;  // with the thread; null before its start
};

}  // namespace zek
