#include "comm/Connection.h"

#include <utility>

#include "comm/Secret.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr int kLinkUpSeconds = 15;  // fixed, whatever "SendTimeOut" says
constexpr std::string_view kLocalApplication = "ZEK";

std::string DdeApplication(const std::string& computer) {
  if (computer.empty()) return std::string(kLocalApplication);
  return "\\\\" + computer + "\\NDDE$";
}

}  // namespace

Connection::Connection(const ConnectionParts& parts) : p_(parts) {
  p_.socket.Attach(this);
  p_.dde.Attach(this);
}

void Connection::Connect(std::int16_t index) {
  if (p_.settings.LocalMode || index == CurrentTopic || !p_.topics.Has(index)) return;
  const std::uint32_t attempt = attempt_ + 1;  // of this Disconnect; one that came in its wait wins
  if (!Disconnect() || attempt != attempt_) return;
  Topic& topic = p_.topics[index];
  p_.status.SetProgress(Text(text::kConnecting) + " " + topic.TopicName);
  const ShowWaiting waiting(p_.status, Text(text::kWaitConnect));
  CurrentAddress = topic.Address;
  PendingTopic = std::to_string(index);
  reader_.Clear();
  droppedTold_ = false;
  socketText_.Reset(topic.HasDus);
  if (p_.settings.TagMode) {
    OpenTag(topic, index);
  } else if (topic.IsTcp()) {
    OpenSocket(topic);
  } else {
    OpenDde(topic);
  }
  if (attempt == attempt_ && !p_.settings.TagMode) {
    p_.countdowns.WaitCountdown = TicksOf(kLinkUpSeconds);
    p_.waits.While([&] {
      return CurrentTopic == -1 && p_.countdowns.WaitCountdown > 0 && attempt == attempt_ &&
             CurrentLink().State() != LinkState::Closed;
    });
  }
  if (attempt != attempt_) return;  // another Connect or Disconnect came meanwhile
  if (CurrentTopic >= 0) {
    Succeeded(topic);
  } else {
    Failed(topic);
  }
}

void Connection::OpenSocket(const Topic& topic) {
  const std::uint32_t attempt = attempt_;
  const auto sendTimeOut = Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15");
  const auto pause = Numbers().ReadSeconds("TCPIP", "DelayAfterConnect", "0");
  if (!sendTimeOut || !pause) return;
  if (p_.socket.State() != LinkState::Closed) {
    p_.socket.Close();
    AwaitClosed(*sendTimeOut);
  }
  if (attempt != attempt_) return;
  p_.socket.Open(
      {std::string(GetField(topic.Address, 0, ":")), std::string(GetField(topic.Address, 1, ":"))});
  const double dus = Val(GetField(topic.Address, 2, ":"));
  if (dus != 0) {
    AwaitConnected(TicksOf(*sendTimeOut));
    if (attempt == attempt_) p_.socket.Send("DUS:" + FormatNumber(dus, '.') + "\r");
  }
  if (topic.HasDus) {
    AwaitConnected(TicksOf(*sendTimeOut));
    if (attempt == attempt_ && p_.socket.State() == LinkState::Connected) OnLinkUp();
  }
  if (dus < 1) return;
  p_.countdowns.AfterConnectCountdown = TicksOf(*pause);
  p_.waits.While([&] {
    return p_.countdowns.AfterConnectCountdown > 0 && attempt == attempt_ &&
           p_.socket.State() == LinkState::Connected;
  });
}

void Connection::OpenDde(const Topic& topic) {
  if (p_.dde.State() != LinkState::Closed) p_.dde.Close();
  p_.dde.Open({DdeApplication(topic.Address), topic.TopicName});
}

void Connection::OpenTag(Topic& topic, std::int16_t index) {
  const std::uint32_t attempt = attempt_;
  if (!TagOpen()) return;
  if (!topic.Tag.empty()) {
    p_.tags.TagWrite(topic.Tag, "2");
    p_.waits.WaitSeconds(p_.settings.ConnectDelayTime);
    topic.TagState = 2;
  }
  if (attempt != attempt_) return;
  if (p_.tags.TagWrite(topic.TopicName, "transparent open") != 0) CurrentTopic = index;
}

void Connection::AwaitConnected(std::int16_t ticks) {
  const std::uint32_t attempt = attempt_;
  p_.countdowns.WaitCountdown = ticks;
  p_.waits.While([&] {
    return p_.socket.State() == LinkState::Opening && p_.countdowns.WaitCountdown > 0 &&
           attempt == attempt_;
  });
}

void Connection::AwaitClosed(double seconds) {
  const std::uint32_t attempt = attempt_;
  const ShowWaiting waiting(p_.status, Text(text::kWaitClose));
  p_.countdowns.WaitCountdown = TicksOf(seconds);
  p_.waits.While([&] {
    return p_.socket.State() != LinkState::Closed && p_.countdowns.WaitCountdown > 0 &&
           attempt == attempt_;
  });
}

void Connection::Succeeded(const Topic& topic) {
  p_.transfer.Kind = TransferKind::Idle;
  p_.countdowns.IdleCountdown = p_.settings.DisconnectTicks;
  p_.status.Connection = topic.Description + " (" + topic.TopicName + ")";
  p_.status.SetProgress({});
  pollFaultTold_ = false;
  TellTagFault();
}

void Connection::Failed(Topic& topic) {
  std::string what = " Topic '" + topic.TopicName + "'";
  if (p_.settings.TagMode) {
    what = " Tag '" + topic.Tag + "'";
    if (!topic.Tag.empty()) {
      p_.tags.TagWrite(topic.Tag, "1");
      p_.waits.WaitSeconds(p_.settings.DisconnectDelayTime);
      topic.TagState = 1;
    }
    p_.tags.Close();
  } else {
    CurrentLink().Close();
  }
  SettleDisconnected();
  TellTagFault();
  if (!p_.waits.Stopped()) p_.prompts.Show(Icon::Critical, Text(text::kConnectFailed) + what);
}

bool Connection::Disconnect() {
  const std::uint32_t attempt = ++attempt_;
  if (p_.settings.LocalMode) {
    CurrentTopic = -1;
    return true;
  }
  if (CurrentTopic >= 0 && p_.settings.TagMode) {
    if (!CloseTag(p_.topics[CurrentTopic])) {
      TellTagFault();
      return false;
    }
  } else if (CurrentTopic >= 0 || !PendingTopic.empty()) {
    CurrentLink().Close();
    if (CurrentTopic >= 0 && IsTcp()) AwaitClosed(p_.settings.DisconnectDelay);
  }
  if (attempt == attempt_) SettleDisconnected();
  TellTagFault();
  return true;
}

bool Connection::CloseTag(Topic& topic) {
  if (p_.tags.TagWrite(topic.TopicName, "transparent close") == 0) {
    p_.transfer.Kind = TransferKind::Idle;
    p_.prompts.Show(Icon::Critical, Text(text::kDisconnectFailed));
    return false;
  }
  if (!topic.Tag.empty()) {
    p_.waits.WaitSeconds(p_.settings.DisconnectDelayTime);
    p_.tags.TagWrite(topic.Tag, "1");
    topic.TagState = 1;
  }
  p_.tags.Close();
  return true;
}

// Nothing that arrives late can set `CurrentTopic` after this.
void Connection::SettleDisconnected() {
  p_.countdowns.IdleCountdown = 0;
  CurrentTopic = -1;
  PendingTopic.clear();
  p_.status.Connection = Text(text::kNotConnected);
  p_.status.Sequence.clear();
  p_.status.SetProgress({});
}

bool Connection::TagOpen() {
  const Profile& profile = p_.profile;
  password_ = profile.ReadIni("General", "Password", "");
  return p_.tags.Open(profile.ReadIni("General", "ComputerName", ""),
                      profile.ReadIni("General", "UserName", ""), password_) != 0;
}

// An object that repeats what it was called with must not give the password away.
std::string Connection::TakeTagFault() { return WithoutSecret(p_.tags.TakeFault(), password_); }

// A password this short stands by chance in what controllers say.
std::string Connection::ForLog(std::string_view line) const {
  constexpr std::size_t tooShort = 4;
  return password_.size() < tooShort ? std::string(line) : WithoutSecret(line, password_);
}

// A call that the object answered with zero is told by whoever made it; why another one failed only
// the object knows.
void Connection::TellTagFault() {
  const std::string fault = p_.settings.TagMode ? TakeTagFault() : std::string();
  if (fault.empty() || p_.waits.Stopped()) return;
  p_.prompts.Show(Icon::Critical, Message(Text(text::kTagError), {fault}));
}

void Connection::CloseAllTags() {
  if (!p_.settings.TagMode || !TagOpen()) return;
  for (std::int16_t index = 0; index < p_.topics.TopicCount(); ++index) {
    Topic& topic = p_.topics[index];
    if (topic.Tag.empty() || topic.TagState == 0) continue;
    p_.tags.TagWrite(topic.Tag, "0");
    topic.TagState = 0;
  }
  p_.tags.Close();
}

bool Connection::IsLinkUp() const {
  if (CurrentTopic < 0) return false;
  if (p_.settings.TagMode) return true;
  return CurrentLink().State() == LinkState::Connected;
}

bool Connection::AwaitAllSent() {
  if (p_.settings.TagMode || !IsLinkUp()) return IsLinkUp();
  const auto seconds = Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15");
  p_.countdowns.WaitCountdown = TicksOf(seconds.value_or(0));
  p_.waits.While(
      [this] { return IsLinkUp() && !CurrentLink().AllSent() && p_.countdowns.WaitCountdown > 0; });
  return IsLinkUp() && CurrentLink().AllSent();
}

void Connection::OnLinkText(std::string_view bytes) {
  if (IsTcp()) {
    TakeSocketText(bytes);
  } else if (!Sending) {
    reader_.HandleReplyText(bytes, *this);
  }
  if (reader_.TakeDropped()) TextLost();
  p_.status.Sequence = reader_.Sequence();
  p_.status.Changed();
}

void Connection::TakeSocketText(std::string_view bytes) {
  socketText_.Take(bytes, [this](std::string_view text) { reader_.HandleReplyText(text, *this); });
  const bool dropped = socketText_.TakeDropped();
  if (dropped) OnTextDropped();
  if (socketText_.TakeTorn() || dropped) TextLost();
}

// A read can't know then what was listed, nor a write whether a line was refused.
void Connection::TextLost() {
  ++linkFaults_;
  p_.transfer.TakeDamage(p_.countdowns);
}

void Connection::OnLinkUp() {
  // The server has made its line to the controller anew, and forgets what came in between.
  if (CurrentTopic >= 0 && p_.transfer.Kind != TransferKind::Idle) TextLost();
  if (!PendingTopic.empty()) CurrentTopic = ToInt16(Val(PendingTopic)).value_or(-1);
}

void Connection::OnReplyLine(std::string_view line) {
  ReplyLine = line;
  if (p_.transfer.Kind != TransferKind::Idle && CurrentTopic >= 0) {
    p_.status.Dot();
    p_.transfer.TakeReplyLine(line, p_.countdowns, p_.settings.GetTSCTimeoutTicks);
  }
  p_.log.Add(ForLog(line));
}

void Connection::OnTextDropped() {
  if (!std::exchange(droppedTold_, true)) p_.log.Add(Text(text::kTextDropped));
}

void Connection::OnLinkClosed() {
  const bool told = CurrentTopic < 0 || p_.status.Busy > 0;
  const std::string name = CurrentTopic < 0 ? std::string() : p_.topics[CurrentTopic].TopicName;
  LinkLost();
  // A connect that waits, and a transfer, tell of it themselves.
  if (!told) p_.prompts.Show(Icon::Exclamation, Message(Text(text::kLinkLost), {name}));
}

void Connection::OnLinkError(const LinkFault& fault) {
  LinkLost();
  const std::string reason =
      fault.textNumber != 0 ? Text(fault.textNumber) : Windows1252FromUtf8(fault.systemMessage);
  p_.prompts.Show(Icon::Critical,
                  Message(Text(IsTcp() ? text::kSocketError : text::kDdeError), {reason}));
}

void Connection::LinkLost() {
  ++linkFaults_;
  p_.countdowns.ReplyCountdown = 0;
  if (CurrentTopic >= 0) SettleDisconnected();
}

void Connection::Tick() {
  p_.countdowns.Tick();
  TickIdle();
  // Not every link tells by itself that the other side has died: it looks when it is asked.
  if (!p_.settings.TagMode && CurrentTopic >= 0) static_cast<void>(IsLinkUp());
  if (p_.settings.TagMode && CurrentTopic >= 0) TagReadPoll();
}

void Connection::TickIdle() {
  std::int16_t& left = p_.countdowns.IdleCountdown;
  // Also in the pauses of a transfer, in which no line is expected.
  if (p_.transfer.Kind != TransferKind::Idle || p_.status.Busy > 0) left = 0;
  if (p_.settings.LocalMode || left == 0 || --left > 0) return;
  Disconnect();
  const int seconds = p_.settings.DisconnectTicks / kTicksPerSecond;
  p_.prompts.Show(Icon::Information, Text(text::kIdleBefore) + " " + std::to_string(seconds) + " " +
                                         Text(text::kIdleAfter));
}

void Connection::TellPollFault() {
  const std::string fault = TakeTagFault();
  if (fault.empty() || std::exchange(pollFaultTold_, true)) return;
  p_.prompts.Show(Icon::Critical, Message(Text(text::kTagError), {fault}));
}

void Connection::TagReadPoll() {
  const std::string reply = p_.tags.TagRead(p_.topics[CurrentTopic].TopicName);
  if (reply.empty()) {
    TellPollFault();
    return;
  }
  reader_.HandleReplyText(reply + "\n", *this);
  if (reader_.TakeDropped()) TextLost();
  p_.status.Sequence = reader_.Sequence();
  p_.status.Changed();
}

}  // namespace zek
