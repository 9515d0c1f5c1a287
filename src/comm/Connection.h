#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "comm/Countdowns.h"
#include "comm/Link.h"
#include "comm/ReplyLog.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"
#include "comm/StatusPanels.h"
#include "comm/TagServer.h"
#include "comm/TopicTable.h"
#include "comm/Transfer.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "system/Prompts.h"

namespace zek {

/// What the connection works on; all of it lives as long as the session.
struct ConnectionParts {
  const Settings& settings;
  const LanguageTexts& texts;
  const Profile& profile;
  Prompts& prompts;
  TopicTable& topics;
  Countdowns& countdowns;
  Waits& waits;
  Transfer& transfer;
  ReplyLog& log;
  StatusPanels& status;
  Link& socket;
  Link& dde;
  TagServer& tags;
};

/// The one connection of the program: to a topic over the socket, the DDE link or the tag object.
/// Waits run events, so every operation may be entered while another is waiting: a later Connect
/// or Disconnect ends the waits of an earlier one, a later SendCommand those of an earlier command.
class Connection final : private LinkEvents, private ReplyEvents {
 public:
  explicit Connection(const ConnectionParts& parts);

  std::int16_t CurrentTopic = -1;  // index of the connected topic; -1 = none, also while connecting
  std::string PendingTopic;        // index of the topic being connected, as text; "" = none
  std::string CurrentAddress;      // `Address` of that topic
  std::string ReplyLine;           // the last complete line; emptied when a command is sent
  bool Sending = false;            // a command is being written; DDE text is not parsed meanwhile

  /// Opens a topic; the result is `CurrentTopic`. Failures are shown with the critical icon.
  void Connect(std::int16_t index);

  /// Closes whatever is open. False when the tag server refused: that was shown, and the topic
  /// stays connected.
  bool Disconnect();

  /// Writes one command and waits up to 10 s for the first reply line. False when there is no
  /// link or it did not take the command.
  bool SendCommand(std::string_view command);

  /// A tick of `Timer_Comm`: counts down, disconnects when idle, polls the reply tag.
  void Tick();

  /// True while the link of the connected topic is up.
  bool IsLinkUp() const;

  /// True when the way to that topic turns text like "{13}" into a control character.
  bool ReadsEscapes(std::int16_t topic) const {
    return !p_.settings.TagMode && !p_.topics[topic].IsTcp();
  }

  /// Waits, at most "SendTimeOut" seconds, until the other side has confirmed every byte; false
  /// when it did not, or the link is down.
  bool AwaitAllSent();

  /// How often a link was lost, a command could not be handed to it or text from it was lost, so
  /// far. A transfer compares it before and after.
  std::uint32_t LinkFaults() const { return linkFaults_; }

  /// At the end of the program in tag mode: "0" to every tag that was opened, then log off.
  void CloseAllTags();

 private:
  void OnLinkText(std::string_view bytes) override;
  void OnLinkClosed() override;
  void OnLinkError(const LinkFault& fault) override;
  void OnLinkUp() override;
  void OnReplyLine(std::string_view line) override;
  void OnTextDropped() override;

  NumberReader Numbers() const { return {p_.profile, p_.texts, p_.prompts}; }
  void OpenSocket(const Topic& topic);
  void OpenDde(const Topic& topic);
  void OpenTag(Topic& topic, std::int16_t index);
  void AwaitConnected(std::int16_t ticks);
  void AwaitClosed(double seconds);
  void Succeeded(const Topic& topic);
  void Failed(Topic& topic);
  bool CloseTag(Topic& topic);
  bool TagOpen();
  std::string TakeTagFault();
  std::string ForLog(std::string_view line) const;
  void TellTagFault();
  void TellPollFault();
  void LinkLost();
  void TextLost();
  void TakeSocketText(std::string_view bytes);
  void SettleDisconnected();
  bool WriteCommand(std::string_view command, bool printable);
  void AwaitFirstLine();
  void TickIdle();
  void TagReadPoll();
  bool IsTcp() const { return CurrentAddress.find(':') != std::string::npos; }
  Link& CurrentLink() const { return IsTcp() ? p_.socket : p_.dde; }
  std::string Text(std::int32_t number) const { return p_.texts.Text(number); }

  ConnectionParts p_;
  ReplyReader reader_;
  SocketText socketText_;
  std::string password_;       // of the last log-on to the tag server
  std::uint32_t attempt_ = 0;  // counts Connect and Disconnect
  std::uint32_t command_ = 0;  // counts commands
  std::uint32_t linkFaults_ = 0;
  bool droppedTold_ = false;    // of this connection, as the next one
  bool pollFaultTold_ = false;  // of this connection: five messages a second help nobody
};

}  // namespace zek
