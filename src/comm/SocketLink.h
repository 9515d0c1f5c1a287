#pragma once

#include <cstdint>

#include "comm/SocketText.h"
#include "comm/TransportLink.h"

namespace zek {

/// Link for addresses HOST:PORT and HOST:PORT:DUS: TCP/IP to the communication server.
class SocketLink final : public TransportLink {
 public:
  SocketLink(Transport& socket, LinkEvents& events, const LinkParts& parts)
      : TransportLink(socket, events, parts), events_(events) {}

  void Open(Topic& topic, const Attempt& attempt) override;
  bool Close(Topic& topic, const Attempt& attempt) override;
  bool Write(std::string_view command) override;
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::int32_t ErrorText() const override;

 private:
  void OpenDus(double dus, double sendTimeOut, const Attempt& attempt);
  void AwaitConnected(double seconds, const Attempt& attempt) const;
  void AwaitClosed(double seconds, const Attempt& attempt) const;

  LinkEvents& events_;
  SocketText text_;
};

}  // namespace zek
