#pragma once

#include <string>

#include "comm/Link.h"
#include "comm/TopicLine.h"

namespace zek {

/// Common part of the links over a transport.
class TransportLink : public Link {
 public:
  TransportLink(Transport& transport, LinkEvents& events, const LinkParts& parts)
      : transport_(transport), p_(parts) {
    transport_.Attach(&events);
  }

  void Abandon(const Topic& /*topic*/, Steps& /*steps*/) override { transport_.Close(); }
  LinkState State() const override { return transport_.State(); }
  bool AllSent() const override { return transport_.AllSent(); }
  double SendTimeOut() const override {
    return p_.Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15").value_or(0);
  }
  std::string Describe(const Topic& topic) const override { return TopicLine(topic.TopicName); }

 protected:
  /// Processes replies and other events between the parts of a command.
  void RunPending() const {
    for (int i = 0; i < 4; ++i) p_.waits.RunPending();
  }

  Transport& transport_;
  LinkParts p_;
};

}  // namespace zek
