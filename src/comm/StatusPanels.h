#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace zek {

/// What the status bars and the mouse pointer show. The forms copy it when `Changed` was called,
/// at most once a frame.
class StatusPanels {
 public:
  std::string Connection;  // panel 1: the connected topic
  std::string Progress;    // panel 2 of the main window: a connection being made
  std::string Transfer;    // panel 2 of the browser: text and dots of a catalogue transfer
  std::string Sequence;    // panel 3: the sequence field of the last reply text
  std::string Waiting;     // what the program waits for at this moment; empty when for nothing
  int Hourglass = 0;       // above 0: a command waits for its answer
  int Busy = 0;            // above 0: a catalogue transfer runs, the browser is disabled

  /// Called after any change of what is shown here or in the log.
  std::function<void()> Changed = [] {};

  /// One more "." behind the transfer's text. It stops growing at the width of any status bar.
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
    Changed();
  }

 private:
  static constexpr std::size_t kLongestProgress = 250;
};

/// Shows in `Waiting` what is waited for, and puts back what stood there before.
class ShowWaiting {
 public:
  ShowWaiting(StatusPanels& status, std::string what) : status_(status), before_(status.Waiting) {
    status_.SetWaiting(std::move(what));
  }
  ShowWaiting(const ShowWaiting&) = delete;
  ShowWaiting& operator=(const ShowWaiting&) = delete;
  ~ShowWaiting() { status_.SetWaiting(std::move(before_)); }

 private:
  StatusPanels& status_;
  std::string before_;
};

/// Counts one of the counters of `StatusPanels` up for its own life.
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
