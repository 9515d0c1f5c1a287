#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "comm/Links.h"
#include "comm/ReplyLog.h"
#include "comm/ReplyReader.h"
#include "comm/TopicTable.h"
#include "comm/Transfer.h"

namespace zek {

/// What the connection works with; all of it lives as long as the session.
struct ConnectionParts : LinkParts {
  TopicTable& topics;
  Transfer& transfer;
  ReplyLog& log;
  Transports transports;
};

/// The one connection of the program: to a topic, over the link that leads there.
/// Waits run events, so every operation may be entered while another is waiting: a later Connect
/// or Disconnect ends the waits of an earlier one, a later SendCommand those of an earlier command.
class Connection final : private LinkEvents, private ReplyEvents {
 public:
  explicit Connection(const ConnectionParts& parts);

  std::int16_t CurrentTopic = -1;  // index of the connected topic; -1 = none, also while connecting
  std::string PendingTopic;        // index of the topic being connected, as text; "" = none
  std::string CurrentAddress;      // `Address` of that topic
  std::string ReplyLine;           // the last complete line; emptied when a command is sent
  bool Sending = false;            // a command is being written

  /// Opens a topic; the result is `CurrentTopic`. Failures are shown with the critical icon.
  void Connect(std::int16_t index);

  /// Closes what is open. False when the other side refused: that was shown, and the topic stays
  /// connected.
  bool Disconnect();

  /// Writes one command and waits up to 10 s for the first reply line. False when there is no
  /// link or it did not take the command.
  bool SendCommand(std::string_view command);

  /// A tick of `Timer_Comm`: counts down, disconnects when idle, polls the link.
  void Tick();

  /// True while the link of the connected topic is up.
  bool IsLinkUp() const;

  /// True when the way to that topic turns text like "{13}" into a control character.
  bool ReadsEscapes(std::int16_t topic) const {
    return links_.To(p_.topics[topic].Address).ReadsEscapes();
  }

  /// True when replies are fetched by polling, tick by tick.
  bool IsPolled() const { return CurrentLink().IsPolled(); }

  /// Waits, at most "SendTimeOut" seconds, until the other side has confirmed every byte; false
  /// when it did not, or the link is down.
  bool AwaitAllSent();

  /// How often a link was lost, a command could not be handed to it or text from it was lost, so
  /// far. A transfer compares it before and after.
  std::uint32_t LinkFaults() const { return linkFaults_; }

  /// At the end of the program: switches off every tag that was opened.
  void CloseAllTags() { CurrentLink().EndSession(p_.topics); }

 private:
  void OnLinkText(std::string_view bytes) override;
  void OnLinkClosed() override;
  void OnLinkError(const LinkFault& fault) override;
  void OnLinkUp() override;
  void OnReplyLine(std::string_view line) override;
  void OnTextDropped() override;

  Attempt Begin() { return ++attempts_, Attempt(attempts_); }
  bool Leave(const Attempt& attempt);
  void AwaitLinkUp(const Attempt& attempt);
  void Succeeded(const Topic& topic);
  void Failed(Topic& topic);
  void SettleDisconnected();
  void ReportFault();
  void LinkLost();
  void TextLost();
  bool Write(std::string_view command);
  void AwaitFirstLine(const Attempt& command);
  void TickIdle();
  Link& CurrentLink() const { return links_.To(CurrentAddress); }
  std::string Text(std::int32_t number) const { return p_.messages.Text(number); }

  ConnectionParts p_;
  Links links_;
  ReplyReader reader_;
  std::uint32_t attempts_ = 0;  // of Connect and Disconnect
  std::uint32_t commands_ = 0;
  std::uint32_t linkFaults_ = 0;
  bool dropReported_ = false;  // of this connection
};

}  // namespace zek
