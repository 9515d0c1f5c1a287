#pragma once

#include <memory>
#include <string>

#include <wx/event.h>
#include <wx/socket.h>

#include "comm/HostLookup.h"
#include "comm/Transport.h"

namespace zek {

/// A TCP/IP socket as a transport. All events come through the event loop of the program, which
/// never stands still: also a host name is looked up beside it.
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
  std::shared_ptr<wxSocketClient> socket_;  // shared with the event that ends it, see Drop
  LinkState state_ = LinkState::Closed;
  std::string unsent_;   // handed over, not yet taken by the system
  unsigned serial_ = 0;  // counts the sockets: events of an older one are late
};

}  // namespace zek
