#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>

namespace zek {

/// How far a write has come: its lines, and the seconds until its end, as far as the pauses tell.
struct SendingSteps {
  std::size_t done = 0;
  std::size_t of = 0;  // 0: no catalogue is being sent; otherwise at least 1
  int secondsLeft = 0;
  bool shared = false;  // the catalogue has lines of other time controls
};

/// Contents of the status bars and the mouse pointer. After `Changed` the forms copy them, at most
/// once a frame.
class StatusPanels {
 public:
  std::string Connection;  // panel 1: the connected topic
  std::string Progress;    // panel 2 of the main window: the topic being connected
  std::string Transfer;    // panel 2 of the browser: text and dots of a catalogue transfer
  std::string Sequence;    // panel 3: the sequence field of the last reply text
  std::string Waiting;     // the present wait, in words; "" without one
  std::string Outcome;     // of the last write, with its time
  SendingSteps Sending;
  bool Asking = false;  // whether to cancel the transfer
  int Hourglass = 0;    // above 0: a command waits for its reply
  int Busy = 0;         // above 0: a catalogue transfer runs, the browser is disabled

  /// Called after every change here or in the log.
  std::function<void()> Changed = [] {};

  /// Adds a "." to the transfer's text, up to the width of a wide status bar.
  void Dot() {
    if (Transfer.size() < kLongestProgress) Transfer += '.';
    Changed();
  }

  void SetProgress(std::string text) {
    Progress = std::move(text);
    Changed();
  }

  void SetTransfer(std::string text) {
    Transfer = std::move(text);
    Changed();
  }

  void SetWaiting(std::string text) {
    Waiting = std::move(text);
    if (!waits_.empty()) waits_.back() = Waiting;
    Changed();
  }

 private:
  friend class ShowWaiting;
  static constexpr std::size_t kLongestProgress = 250;

  std::list<std::string> waits_;  // of the existing `ShowWaiting`, the newest last
};

/// Sets `Waiting` while it exists, unless a newer one sets it. They may end in any order.
class ShowWaiting {
 public:
  ShowWaiting(StatusPanels& status, std::string what)
      : status_(status), place_(status.waits_.insert(status.waits_.end(), std::move(what))) {
    status_.SetWaiting(*place_);
  }
  ShowWaiting(const ShowWaiting&) = delete;
  ShowWaiting& operator=(const ShowWaiting&) = delete;
  ~ShowWaiting() {
    status_.waits_.erase(place_);
    status_.SetWaiting(status_.waits_.empty() ? std::string() : status_.waits_.back());
  }

 private:
  StatusPanels& status_;
  std::list<std::string>::iterator place_;
};

/// Raises one counter of `StatusPanels` by one while it exists.
class CountedUp {
 public:
  CountedUp(StatusPanels& status, int StatusPanels::*counter) : status_(status), counter_(counter) {
    ++(status_.*counter_);
    status_.Changed();
  }
  CountedUp(const CountedUp&) = delete;
  CountedUp& operator=(const CountedUp&) = delete;
  ~CountedUp() {
    --(status_.*counter_);
    status_.Changed();
  }

 private:
  StatusPanels& status_;
  int StatusPanels::*counter_;
};

}  // namespace zek
