#pragma once

#include <memory>
#include <string>

#include <wx/event.h>
#include <wx/socket.h>

#include "comm/HostLookup.h"
#include "comm/Transport.h"

namespace zek {

/// A TCP/IP socket as a transport. All events arrive through the program's event loop, which never
/// blocks: host names are looked up in another thread.
class WxTcpTransport final : public wxEvtHandler, public Transport {
 public:
  explicit WxTcpTransport(HostLookup::Resolve resolve = LookUpHost);
  WxTcpTransport(const WxTcpTransport&) = delete;
  WxTcpTransport& operator=(const WxTcpTransport&) = delete;
  ~WxTcpTransport() override;

  void Open(const LinkTarget& target) override;
  bool Send(std::string_view bytes) override;
  bool AllSent() const override;
  void Close() override;
  LinkState State() const override { return state_; }

 private:
  void Connect(wxIPV4address address, const std::string& host);
  void OnSocket(wxSocketEvent& event);
  void OnInput();
  void OnLost();
  void FlushUnsent();
  void FailLater(std::int32_t textNumber);
  void Drop();

  HostLookup lookup_;
  std::shared_ptr<wxSocketClient> socket_;  // shared with the call that destroys it, see Drop
  LinkState state_ = LinkState::Closed;
  std::string unsent_;   // passed to Send, not yet accepted by the system
  unsigned serial_ = 0;  // counts sockets, to ignore late events of an older one
};

}  // namespace zek
