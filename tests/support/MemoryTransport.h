#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "comm/Transport.h"
#include "support/VirtualTurn.h"

namespace zek::test {

/// A transport in virtual time. It reports by events, like a real one.
class MemoryTransport final : public Transport {
 public:
  explicit MemoryTransport(VirtualTurn& turn) : turn_(turn) {}

  bool reachable = true;  // false: opening fails at once
  bool silent = false;    // opening never ends
  int openMilliseconds = 20;
  int closeMilliseconds = 0;    // until a close is done; below 0: never, until the next one
  int confirmMilliseconds = 0;  // until the peer has confirmed what was sent
  bool takesBytes = true;       // false: Send fails
  bool acknowledges = true;     // false: what was sent stays unconfirmed
  bool takesThis = true;        // onSent sets it to false to refuse these bytes
  std::vector<LinkTarget> opened;
  bool openedTwice = false;                   // while it was not closed
  std::string sent;                           // all bytes, of all connections
  std::function<void()> onConnected = [] {};  // the peer's greeting
  std::function<void(std::string_view)> onSent = [](std::string_view) {};

  void Open(const LinkTarget& target) override {
    opened.push_back(target);
    openedTwice |= state_ != LinkState::Closed;
    state_ = LinkState::Opening;
    const unsigned serial = ++serial_;
    if (silent) return;
    turn_.After(openMilliseconds, [this, serial] {
      if (serial != serial_) return;
      if (!reachable) {
        Fail();
        return;
      }
      state_ = LinkState::Connected;
      onConnected();
    });
  }

  bool Send(std::string_view bytes) override {
    if (state_ != LinkState::Connected || !takesBytes) return false;
    sent += bytes;
    confirmed_ = turn_.Now() + confirmMilliseconds;
    onSent(bytes);
    return std::exchange(takesThis, true);
  }

  bool AllSent() const override { return acknowledges && turn_.Now() >= confirmed_; }

  void Close() override {
    const unsigned serial = ++serial_;
    const bool slowly = state_ == LinkState::Connected && closeMilliseconds != 0;
    state_ = slowly ? LinkState::Closing : LinkState::Closed;
    if (!slowly || closeMilliseconds < 0) return;
    turn_.After(closeMilliseconds, [this, serial] {
      if (serial == serial_) state_ = LinkState::Closed;
    });
  }

  LinkState State() const override { return state_; }

  // What the peer does after `milliseconds`.
  void Say(std::string bytes, int milliseconds = 10) {
    turn_.After(milliseconds, [this, serial = serial_, bytes = std::move(bytes)] {
      if (serial == serial_) Events().OnLinkText(bytes);
    });
  }
  void SayNow(std::string_view bytes) { Events().OnLinkText(bytes); }  // the event itself
  void HangUp(int milliseconds = 10) {
    turn_.After(milliseconds, [this, serial = serial_] {
      if (serial != serial_) return;
      ++serial_;
      state_ = LinkState::Closed;
      Events().OnLinkClosed();
    });
  }
  void Break(int milliseconds = 10) {
    turn_.After(milliseconds, [this, serial = serial_] {
      if (serial == serial_) Fail();
    });
  }

 private:
  void Fail() {
    ++serial_;
    state_ = LinkState::Closed;
    Events().OnLinkError({0, "broken"});
  }

  VirtualTurn& turn_;
  LinkState state_ = LinkState::Closed;
  unsigned serial_ = 0;
  std::int64_t confirmed_ = 0;
};

}  // namespace zek::test
