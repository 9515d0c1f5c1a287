#pragma once

#include <memory>
#include <string_view>

#include "comm/Transport.h"
#include "system/Later.h"

namespace zek {

/// A DDE conversation as a transport: an automatic link on item "TRANSPARENT" brings the text,
/// pokes of the same item carry the commands. All transactions are asynchronous, and what the
/// system reports inside a message is posted to the event loop, so that no handler ever runs inside
/// a DDE call.
///
/// The communication server may also call back: what it pokes into item "Text_CTServCallBack" of
/// our own service "ZEKView", topic "ZV_Main", is reply text like any other, a line by itself. It
/// counts while the link is connected.
///
/// A transaction that the server refuses, or text that comes faster than it is read
/// (`kMostUnread`), ends the conversation with OnLinkError: a command that was taken in part must
/// not be followed by others, and no text may be lost unnoticed.
class WinDdeTransport final : public Transport {
 public:
  /// So many characters of text wait at most to be handed over.
  static constexpr std::size_t kMostUnread = std::size_t{1} << 20;
  /// So many pokes wait at most for the server; beyond it Send refuses.
  static constexpr int kMostOutstanding = 100;

  explicit WinDdeTransport(Later later);
  WinDdeTransport(const WinDdeTransport&) = delete;
  WinDdeTransport& operator=(const WinDdeTransport&) = delete;
  ~WinDdeTransport() override;

  void Open(const LinkTarget& target) override;
  /// Pokes the text; a NUL ends it, as everywhere in DDE text.
  bool Send(std::string_view bytes) override;
  /// True when the server has taken every poke.
  bool AllSent() const override;
  void Close() override;
  LinkState State() const override;

 private:
  class Conversation;
  std::shared_ptr<Conversation> conversation_;  // shared with the calls that are posted
};

}  // namespace zek
