#pragma once

#include <memory>
#include <string_view>

#include "comm/Transport.h"
#include "system/Turn.h"

namespace zek {

/// A DDE conversation as a transport. An advise link on item "TRANSPARENT" delivers the text; pokes
/// of the same item carry the commands. All transactions are asynchronous. Events are posted to the
/// event loop, so that no handler runs inside a DDE call.
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

  explicit WinDdeTransport(Later later);
  WinDdeTransport(const WinDdeTransport&) = delete;
  WinDdeTransport& operator=(const WinDdeTransport&) = delete;
  ~WinDdeTransport() override;

  void Open(const LinkTarget& target) override;
  /// Pokes the text up to a NUL, which ends DDE text.
  bool Send(std::string_view bytes) override;
  /// True once the server has accepted every poke.
  bool AllSent() const override;
  void Close() override;
  LinkState State() const override;

 private:
  class Conversation;
  std::shared_ptr<Conversation> conversation_;  // posted calls hold a weak reference
};

}  // namespace zek
