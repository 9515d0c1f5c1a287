#pragma once

#include <cstdint>
#include <string>

#include "comm/Link.h"

namespace zek {

/// The tag-access object `CTAPIX.CTAPI`; its methods are called by name. Each call blocks until the
/// object answers. Zero means failure. A call that the object does not know, or that raises an
/// exception, also fails.
class TagServer {
 public:
  virtual ~TagServer() = default;
  /// Creates the object; returns false if the system does not have it. `TakeFault` then gives the
  /// reason, with the system's code at its end: "(80040154)".
  virtual bool Create() = 0;
  virtual std::int16_t Open(const std::string& computer, const std::string& user,
                            const std::string& password) = 0;
  virtual std::int16_t TagWrite(const std::string& tag, const std::string& value) = 0;
  virtual std::string TagRead(const std::string& tag) = 0;
  virtual std::int16_t Close() = 0;
  /// Returns and clears the first fault other than a returned zero: the method and the object's or
  /// the system's message (windows-1252); "" without a fault. It never contains the password.
  virtual std::string TakeFault() { return {}; }
};

/// Link for all topics in tag mode. Commands go to the tag named like the topic; every tick reads a
/// reply from it. The topic's `Tag` switches its line on and off.
class TagLink final : public Link {
 public:
  TagLink(TagServer& tags, LinkEvents& events, const LinkParts& parts)
      : tags_(tags), events_(events), p_(parts) {}

  void Open(Topic& topic, const Attempt& attempt, Steps& steps) override;
  void Abandon(Topic& topic, Steps& steps) override;
  bool Close(Topic& topic, Steps& steps) override;
  /// Writes "0" to every opened tag, then logs off.
  void EndSession(TopicTable& topics) override;
  LinkState State() const override;
  void Poll() override;
  bool IsPolled() const override { return true; }
  bool Write(std::string_view command) override;
  TextLoss Receive(std::string_view bytes, const HandOver& handOver) override;
  std::string_view Secret() const override;
  std::string Describe(const Topic& topic) const override;
  std::string Where(const Topic& topic) const override;
  std::int32_t ErrorText() const override;
  std::string TakeFault() override;

 private:
  bool LogOn();
  void ReportPollFault();

  TagServer& tags_;
  LinkEvents& events_;
  LinkParts p_;
  std::string open_;                // the tag of the connected topic; "" without a connection
  std::string password_;            // of the last log-on
  bool passwordLost_ = false;       // it could not be decrypted, so there was no log-on
  bool pollFaultReported_ = false;  // once per connection: polls run five times a second
};

}  // namespace zek
