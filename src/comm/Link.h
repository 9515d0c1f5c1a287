#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "comm/Countdowns.h"
#include "comm/StatusPanels.h"
#include "comm/Steps.h"
#include "comm/TopicTable.h"
#include "comm/Transport.h"
#include "lang/Messages.h"
#include "settings/Profile.h"
#include "settings/Settings.h"

namespace zek {

/// One connect, disconnect or command. A handler that runs during its waits may start the next one,
/// which ends those waits.
class Attempt {
 public:
  /// The caller increments `latest` for every attempt; this one takes its value as number.
  explicit Attempt(const std::uint32_t& latest) : latest_(latest), number_(latest) {}
  bool IsLatest() const { return number_ == latest_; }

 private:
  const std::uint32_t& latest_;
  std::uint32_t number_;
};

/// The objects that the links and the connection use. They live as long as the session.
struct LinkParts {
  const Settings& settings;
  const Profile& profile;
  Messages messages;
  Countdowns& countdowns;
  Waits& waits;
  StatusPanels& status;
  TopicTable& topics;

  NumberReader Numbers() const { return {profile, messages}; }

  /// Waits while the condition is true, at most that many seconds.
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
  /// A poll failed; the link stays as it is.
  virtual void OnLinkFault(const std::string& reason) = 0;
};

/// Loss in received text. Torn: a piece lacked its beginning. Dropped: a piece was too long.
enum class TextLoss { None, Torn, Dropped };

/// One way to reach controllers, chosen by the kind of address: opening, closing, line end of
/// commands, framing of replies. A link reports to the connection through `LinkEvents`.
class Link {
 public:
  using HandOver = std::function<void(std::string_view text)>;

  virtual ~Link() = default;

  /// Starts to open the topic and adds what must wait to `steps`. Success is reported by OnLinkUp,
  /// which may come from a step or later, from a reply text. Does nothing if a later attempt comes
  /// from inside this call.
  virtual void Open(const Topic& topic, const Attempt& attempt, Steps& steps) = 0;
  /// Takes back an Open that failed or is no longer wanted.
  virtual void Abandon(const Topic& topic, Steps& steps) = 0;
  /// Starts to close the connected topic. Returns false if the other side refused: it stays
  /// connected. May run events, and adds no steps if a later attempt came from inside this call.
  virtual bool Close(const Topic& topic, const Attempt& attempt, Steps& steps) = 0;
  /// Called at the end of the program.
  virtual void EndSession() {}
  /// Waits, but not for ever, until the other side has answered every call.
  virtual void Finish() {}

  virtual LinkState State() const = 0;
  bool IsConnected() const { return State() == LinkState::Connected; }
  /// Called at every tick while a topic is connected.
  virtual void Poll() {}
  /// True if only `Poll` fetches replies: a command then does not wait for its first line.
  virtual bool IsPolled() const { return false; }

  /// Writes a command and its line end; returns false if it was refused.
  virtual bool Write(std::string_view command) = 0;
  /// True once the other side has confirmed all written bytes.
  virtual bool AllSent() const { return true; }
  /// The longest wait for `AllSent`, in seconds.
  virtual double SendTimeOut() const { return 0; }
  /// True if the other side turns text like "{13}" into the character of that code.
  virtual bool ReadsEscapes() const { return false; }

  /// Turns bytes of OnLinkText into reply texts for `ReplyReader`.
  virtual TextLoss Receive(std::string_view bytes, const HandOver& handOver) = 0;
  /// Returns what the log must not show of a reply line; "" if nothing is secret.
  virtual std::string_view Secret() const { return {}; }

  /// Names the topic in messages.
  virtual std::string Describe(const Topic& topic) const = 0;
  /// Returns the address that the topic is sought at, for messages; "" without one.
  virtual std::string Where(const Topic& topic) const = 0;
  /// The number of the language text that precedes the cause of an error.
  virtual std::int32_t ErrorText() const = 0;
  /// Returns and clears the cause of the first failed call; "" without a failure.
  virtual std::string TakeFault() { return {}; }
};

/// True if a carriage return must follow the command. A text that ends in a control character needs
/// none. Code 31 counts as printable. Enter on an empty line sends a single carriage return.
inline bool NeedsReturn(std::string_view command) {
  return command.empty() || static_cast<unsigned char>(command.back()) >= 31;
}

}  // namespace zek
