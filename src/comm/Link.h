#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "comm/Countdowns.h"
#include "comm/StatusPanels.h"
#include "comm/TopicTable.h"
#include "comm/Transport.h"
#include "lang/Messages.h"
#include "settings/Profile.h"
#include "settings/Settings.h"

namespace zek {

/// One connect, disconnect or command. Handlers that run during its waits may start the next one,
/// which ends those waits.
class Attempt {
 public:
  /// The number of the latest attempt is counted up outside.
  explicit Attempt(const std::uint32_t& latest) : latest_(latest), number_(latest) {}
  bool IsLatest() const { return number_ == latest_; }

 private:
  const std::uint32_t& latest_;
  std::uint32_t number_;
};

/// What the links and the connection work with; it lives as long as the session.
struct LinkParts {
  const Settings& settings;
  const Profile& profile;
  Messages messages;
  Countdowns& countdowns;
  Waits& waits;
  StatusPanels& status;

  NumberReader Numbers() const { return {profile, messages}; }

  /// Waits while the condition holds, at most that many seconds.
  template <class Condition>
  void WaitWhile(double seconds, Condition condition) const {
    countdowns.WaitCountdown = TicksOf(seconds);
    waits.While([&] { return countdowns.WaitCountdown > 0 && condition(); });
  }
};

class LinkEvents : public TransportEvents {
 public:
  /// The line to the controller is open.
  virtual void OnLinkUp() = 0;
};

/// What was lost of text that arrived: a piece came without its beginning, or one was too long.
enum class TextLoss { None, Torn, Dropped };

/// How the controllers behind one kind of address are reached: opening, closing, the line end of
/// commands and the framing of replies. A link reports to the connection by `LinkEvents`.
class Link {
 public:
  using HandOver = std::function<void(std::string_view text)>;

  virtual ~Link() = default;

  /// Opens the topic, with all waits that this takes. It succeeded once OnLinkUp was called, which
  /// may also follow from a reply text.
  virtual void Open(Topic& topic, const Attempt& attempt) = 0;
  /// Ends an Open that a later attempt replaces.
  virtual void Cancel() {}
  /// Cleans up after an Open that failed.
  virtual void Abandon(Topic& topic) = 0;
  /// Closes the connected topic; false when the other side refused, and the topic stays connected.
  virtual bool Close(Topic& topic, const Attempt& attempt) = 0;
  /// At the end of the program.
  virtual void EndSession(TopicTable& /*topics*/) {}

  virtual LinkState State() const = 0;
  bool IsConnected() const { return State() == LinkState::Connected; }
  /// Called at every tick while a topic is connected.
  virtual void Poll() = 0;
  /// True when replies are fetched by `Poll` only: no command waits for its first line.
  virtual bool IsPolled() const { return false; }

  /// Writes a command and its line end; false when it was not taken.
  virtual bool Write(std::string_view command) = 0;
  /// False while the other side has not confirmed all that was written.
  virtual bool AllSent() const { return true; }
  /// How many seconds `AllSent` is worth waiting for.
  virtual double SendTimeOut() const { return 0; }
  /// True when the other side turns text like "{13}" into the character of that code.
  virtual bool ReadsEscapes() const { return false; }

  /// Turns bytes of OnLinkText into reply texts for `ReplyReader`.
  virtual TextLoss Receive(std::string_view bytes, const HandOver& handOver) = 0;
  /// A reply line as the log may show it.
  virtual std::string ForLog(std::string_view line) const { return std::string(line); }

  /// The topic, in the message that it could not be connected.
  virtual std::string Describe(const Topic& topic) const = 0;
  /// The number of the text that introduces the reason of an error.
  virtual std::int32_t ErrorText() const = 0;
  /// Why a call failed, the first since this was called last; "" when none did.
  virtual std::string TakeFault() { return {}; }
};

/// True when a carriage return has to follow the command. A text that ends in a control character
/// is complete without one. Code 31 counts as printable, and so does an empty text: Enter on an
/// empty line sends a bare carriage return.
inline bool NeedsReturn(std::string_view command) {
  return command.empty() || static_cast<unsigned char>(command.back()) >= 31;
}

}  // namespace zek
