#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "comm/Link.h"
#include "comm/TagServer.h"

namespace zek {

/// Link for all topics in tag mode. Commands go to the tag named like the topic; every tick reads a
/// reply from it. The topic's `Tag` switches its line on and off.
///
/// Each call waits in the event loop for its answer. A server that does not answer in time counts
/// as lost. What must still be closed is handed over all the same, because it may wake up later.
class TagLink final : public Link {
 public:
  TagLink(TagServer& tags, LinkEvents& events, const LinkParts& parts)
      : tags_(tags), events_(events), p_(parts) {}

  void Open(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  void Abandon(const Topic& topic, Steps& steps) override;
  bool Close(const Topic& topic, const Attempt& attempt, Steps& steps) override;
  /// Writes "0" to every opened tag, then logs off. Waits for that, but not for ever.
  void EndSession() override;
  void Finish() override;
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
  using Answer = std::shared_ptr<const TagAnswer>;

  Answer Hand(TagServer::Call call);
  Answer LogOn();
  Answer Put(const std::string& tag, const std::string& value);
  /// Switches the line of a topic: "2" on, "1" off, "0" at the end of the program.
  void Switch(const std::string& lineTag, std::int16_t state);
  void LogOff();
  void Answered();
  /// Adds a step of opening that acts once every call is answered; skipped after a failure.
  void Then(Steps& steps, Steps::Action act);
  void AwaitAnswers(Steps& steps);
  void AwaitAnswers() const;
  void TakeReply(const std::string& tag, const TagAnswer& answer);
  void GiveUp();
  std::string WithoutPassword(const std::string& fault) const;

  TagServer& tags_;
  LinkEvents& events_;
  LinkParts p_;
  std::string open_;                // the tag of the connected topic; "" without a connection
  std::string line_;                // its line's tag, or ""
  std::string password_;            // of the last log-on
  bool passwordLost_ = false;       // it could not be decrypted, so there was no log-on
  std::string fault_;               // of the first call that failed
  bool pollFaultReported_ = false;  // once per connection: polls run five times a second
  int unanswered_ = 0;              // calls
  std::int16_t silentTicks_ = 0;    // without an answer, while connected
  bool silent_ = false;             // since the last Open, the server did not answer in time
  bool begun_ = false;              // the last Open got as far as the log-on
  bool failed_ = false;             // the last Open fails
  Answer logOn_;                    // of the last Open
  Answer opening_;                  // to its "transparent open"; null before
  Answer closing_;                  // to "transparent close"; null unless closing
};

}  // namespace zek
