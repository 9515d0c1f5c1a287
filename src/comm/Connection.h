#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "comm/Countdowns.h"
#include "comm/Links.h"
#include "comm/ReplyLog.h"
#include "comm/ReplyReader.h"
#include "comm/StatusPanels.h"
#include "comm/Steps.h"
#include "comm/TopicTable.h"
#include "comm/Transfer.h"
#include "lang/TextNumbers.h"

namespace zek {

/// The objects that the connection uses. They live as long as the session.
struct ConnectionParts : LinkParts {
  Transfer& transfer;
  ReplyLog& log;
  Transports transports;
};

/// The only connection of the program: to one topic, over the link of its address.
/// Waits run events, so any operation may be called while another one waits. A later Connect or
/// Disconnect ends the waits of an earlier one; a later SendCommand ends those of an earlier
/// command. An operation whose wait is held by a message box or another window goes on by ticks.
class Connection final : private LinkEvents, private ReplyEvents {
 public:
  explicit Connection(const ConnectionParts& parts);

  std::int16_t CurrentTopic = -1;  // index of the connected topic; -1 = none, also while connecting
  std::string PendingTopic;        // index of the topic being connected, as text; "" = none
  std::string CurrentAddress;      // `Address` of that topic
  std::string ReplyLine;           // the last complete line; emptied when a command is sent
  std::string FirstLine;           // the first line with text since a command was sent; "" without
  bool Sending = false;            // a command is being handed over; it keeps nothing from going on

  /// Opens a topic and sets `CurrentTopic`. Shows a failure in one message with the critical icon:
  /// what could not be connected, where, and why.
  void Connect(std::int16_t index);

  /// Closes the connection. Returns false, after a message, if the other side refused; the topic
  /// then stays connected.
  bool Disconnect();

  /// Writes one command and waits up to 10 s for the first reply line. Returns false without a
  /// link or if the link refused the command.
  bool SendCommand(std::string_view command);

  /// Writes the last command of a dialogue, also when the user has cancelled or the program ends,
  /// and waits until it has arrived (see `AwaitAllSent`).
  void SendLast(std::string_view command);

  /// One tick of `Timer_Comm`: counts down, disconnects when idle, polls the link.
  void Tick();

  /// True while the link of the connected topic is up.
  bool IsLinkUp() const;

  /// Names a topic as messages do: "Topic 'SKOLA'", with its tag if it has one.
  std::string Describe(std::int16_t topic) const {
    return links_.To(p_.topics[topic].Address).Describe(p_.topics[topic]);
  }

  /// True if the link of that topic turns text like "{13}" into a control character.
  bool ReadsEscapes(std::int16_t topic) const {
    return links_.To(p_.topics[topic].Address).ReadsEscapes();
  }

  /// True if the program polls for replies, once a tick.
  bool IsPolled() const { return CurrentLink().IsPolled(); }

  /// Waits, at most "SendTimeOut" seconds, until the other side has confirmed every byte. Returns
  /// false if it has not, or if the link is down.
  bool AwaitAllSent();

  /// Counts faults since the start: a lost or closed link, a refused command, lost text. A transfer
  /// compares the count before and after.
  std::uint32_t LinkFaults() const { return linkFaults_; }

  /// Switches off every opened tag; call at the end of the program.
  void CloseAllTags() { CurrentLink().EndSession(); }
  /// Waits until what was closed is closed, also when the user has cancelled or the program ends.
  void Finish() { CurrentLink().Finish(); }

 private:
  void OnLinkText(std::string_view bytes) override;
  void OnLinkClosed() override;
  void OnLinkError(const LinkFault& fault) override;
  void OnLinkUp() override;
  void OnLinkFault(const std::string& reason) override;
  void OnLineBegun() override;
  void OnReplyLine(std::string_view line) override;
  void OnTextDropped() override;

  Attempt Begin() { return ++attempts_, Attempt(attempts_); }
  bool Leave(const Attempt& attempt);
  void Await(const Attempt& attempt);
  void SettleConnect();
  void Succeeded(const Topic& topic);
  void Failed(const Topic& topic);
  void ReportFailed(const std::string& name, const std::string& address);
  void ShowFault(const std::string& message);
  std::string CauseOfSilence() const;
  void SettleDisconnected();
  void ReportFault();
  void ReportLinkFault(std::int16_t topic, const std::string& reason);
  bool IsConnecting() const { return connecting_ >= 0; }
  void LinkLost();
  void TextLost();
  bool Write(std::string_view command);
  void LogSent(std::string_view command);
  void TimeLine();
  void HideSecret();
  void AwaitFirstLine(const Attempt& command);
  void TickIdle();
  Link& CurrentLink() const { return links_.To(CurrentAddress); }
  std::string Text(std::int32_t number) const { return p_.messages.Text(number); }
  std::string Fault(const std::string& reason) const {
    return p_.messages.Text(CurrentLink().ErrorText(), {reason});
  }

  // What the user sees while a command waits for its answer.
  struct Awaited {
    explicit Awaited(const ConnectionParts& parts)
        : hourglass(parts.status, &StatusPanels::Hourglass),
          waiting(parts.status, parts.messages.Text(text::kWaitAnswer)) {}
    CountedUp hourglass;
    ShowWaiting waiting;
  };

  ConnectionParts p_;
  Links links_;
  ReplyReader reader_;
  std::string secret_;                  // what nobody must see of the text that is being read
  bool timed_ = false;                  // the log knows when that text came
  std::optional<LocalTime> lineBegan_;  // the unfinished line
  Steps steps_;                         // left of opening or closing a link
  std::int16_t connecting_ = -1;  // index of the topic whose connect has no outcome yet; else -1
  std::string cause_;             // why that connect fails, once known
  std::optional<ShowWaiting> connectWait_;
  std::optional<Awaited> awaited_;
  std::uint32_t attempts_ = 0;  // of Connect and Disconnect
  std::uint32_t commands_ = 0;
  std::uint32_t linkFaults_ = 0;
  bool dropReported_ = false;  // once per connection
};

/// The objects that a dialogue with a controller uses and shows its progress in.
struct Exchange {
  Connection& connection;
  Transfer& transfer;
  Countdowns& countdowns;
  Waits& waits;
  StatusPanels& status;
};

}  // namespace zek
