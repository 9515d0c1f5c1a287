#pragma once

#include <string>

#include "comm/Link.h"

namespace zek {

/// What links over a transport have in common.
class TransportLink : public Link {
 public:
  TransportLink(Transport& transport, LinkEvents& events, const LinkParts& parts)
      : transport_(transport), p_(parts) {
    transport_.Attach(&events);
  }

  void Cancel() override { transport_.Close(); }
  void Abandon(Topic& /*topic*/) override { transport_.Close(); }
  LinkState State() const override { return transport_.State(); }
  // Not every transport reports that the other side has died: some look when asked.
  void Poll() override { static_cast<void>(transport_.State()); }
  bool AllSent() const override { return transport_.AllSent(); }
  double SendTimeOut() const override {
    return p_.Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15").value_or(0);
  }
  std::string Describe(const Topic& topic) const override {
    return "Topic '" + topic.TopicName + "'";
  }

 protected:
  /// Lets replies and other events in between the parts of a command.
  void RunPending() const {
    for (int i = 0; i < 4; ++i) p_.waits.RunPending();
  }

  Transport& transport_;
  LinkParts p_;
};

}  // namespace zek
