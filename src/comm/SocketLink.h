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

  void Open(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  bool Close(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  bool Write(std::string_view command) override;
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::string Where(const Topic& topic) const override { return topic.Address; }
  std::int32_t ErrorText() const override;

 private:
  void OpenDus(double dus, double sendTimeOut, double pause, Steps& steps);
  Steps::Condition IsClosed() const {
    return [this] { return State() == LinkState::Closed; };
  }

  LinkEvents& events_;
  SocketText text_;
};

}  // namespace zek
