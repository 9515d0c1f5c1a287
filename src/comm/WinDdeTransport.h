#pragma once

#include <memory>
#include <string_view>

#include "comm/Transport.h"
#include "system/Turn.h"

namespace zek {

/// A DDE conversation as a transport. An advise link on item "TRANSPARENT" delivers the text; pokes
/// of the same item carry the commands. Every conversation has a thread of its own, because the
/// system's calls may wait for other programs' windows; no call of this class waits. Events are
/// posted to the event loop.
///
/// The communication server may also call back: it pokes a line of reply text into item
/// "Text_CTServCallBack" of our service "ZEKView", topic "ZV_Main". Such a poke is accepted only
/// while the link is connected.
///
/// A refused transaction, or more unread text than `kMostUnread`, ends the conversation with
/// OnLinkError: no command may follow one that was sent in part, and no text may be lost silently.
class WinDdeTransport final : public Transport {
 public:
  /// Limit of the received text that is not yet handed over, in characters.
  static constexpr std::size_t kMostUnread = std::size_t{1} << 20;
  /// Limit of unanswered transactions; at the limit Send returns false.
  static constexpr int kMostOutstanding = 100;

  /// Limit of threads; those of given-up conversations may hang in the system. At the limit Open
  /// fails.
  static constexpr int kMostThreads = 16;

  /// `later` is called by other threads, but not after the destructor.
  explicit WinDdeTransport(Later later);
  WinDdeTransport(const WinDdeTransport&) = delete;
  WinDdeTransport& operator=(const WinDdeTransport&) = delete;
  ~WinDdeTransport() override;

  void Open(const LinkTarget& target) override;
  /// Pokes the text up to a NUL, which ends DDE text. Returns true once the thread has it: a fault
  /// then ends the conversation with an event.
  bool Send(std::string_view bytes) override;
  /// True once the server has accepted every poke.
  bool AllSent() const override;
  void Close() override;
  LinkState State() const override;

 private:
  class Conversation;

  void Report(bool closed, const LinkFault& fault);

  Later later_;
  std::shared_ptr<Conversation> conversation_;  // shared with its thread and with posted calls
  std::shared_ptr<Conversation> before_;        // the closed one before, which may still be ending
};

}  // namespace zek
