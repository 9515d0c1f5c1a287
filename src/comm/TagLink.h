#pragma once

#include <cstdint>
#include <string>

#include "comm/Link.h"
#include "comm/TagServer.h"

namespace zek {

/// All topics in tag mode: commands are written to the tag of the topic's name, replies are read
/// from it at every tick. The topic's own `Tag` switches its line on and off.
class TagLink final : public Link {
 public:
  TagLink(TagServer& tags, LinkEvents& events, const LinkParts& parts)
      : tags_(tags), events_(events), p_(parts) {}

  void Open(Topic& topic, const Attempt& attempt) override;
  void Abandon(Topic& topic) override;
  bool Close(Topic& topic, const Attempt& attempt) override;
  /// "0" to every tag that was opened, then log off.
  void EndSession(TopicTable& topics) override;
  LinkState State() const override;
  void Poll() override;
  bool IsPolled() const override { return true; }
  bool Write(std::string_view command) override;
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::string ForLog(std::string_view line) const override;
  std::string Describe(const Topic& topic) const override { return "Tag '" + topic.Tag + "'"; }
  std::int32_t ErrorText() const override;
  std::string TakeFault() override;

 private:
  bool LogOn();
  void ReportPollFault();

  TagServer& tags_;
  LinkEvents& events_;
  LinkParts p_;
  std::string open_;                // the tag of the connected topic; "" when there is none
  std::string password_;            // of the last log-on
  bool pollFaultReported_ = false;  // of this connection: five messages a second help nobody
};

}  // namespace zek
