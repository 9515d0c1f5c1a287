#include "comm/Connection.h"

#include <utility>

#include "lang/TextNumbers.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr int kLinkUpSeconds = 15;  // independent of "SendTimeOut"

}  // namespace

Connection::Connection(const ConnectionParts& parts)
    : p_(parts), links_(parts.transports, *this, parts) {}

void Connection::Connect(std::int16_t index) {
  if (p_.settings.LocalMode || index == CurrentTopic || !p_.topics.Has(index)) return;
  const Attempt attempt = Begin();
  if (!Leave(attempt) || !attempt.IsLatest()) return;
  Topic& topic = p_.topics[index];
  p_.status.SetProgress(Text(text::kConnecting) + " " + topic.TopicName);
  const ShowWaiting waiting(p_.status, Text(text::kWaitConnect));
  CurrentAddress = topic.Address;
  PendingTopic = std::to_string(index);
  reader_.Clear();
  dropReported_ = false;
  CurrentLink().Open(topic, attempt);
  if (attempt.IsLatest()) AwaitLinkUp(attempt);
  if (!attempt.IsLatest()) return;
  if (CurrentTopic >= 0) {
    Succeeded(topic);
  } else {
    Failed(topic);
  }
}

void Connection::AwaitLinkUp(const Attempt& attempt) {
  p_.WaitWhile(kLinkUpSeconds, [&] {
    return CurrentTopic == -1 && attempt.IsLatest() && CurrentLink().State() != LinkState::Closed;
  });
}

void Connection::Succeeded(const Topic& topic) {
  p_.transfer.Kind = TransferKind::Idle;
  p_.countdowns.IdleCountdown = p_.settings.DisconnectTicks;
  p_.status.Connection = topic.Description + " (" + topic.TopicName + ")";
  p_.status.SetProgress({});
  ReportFault();
}

void Connection::Failed(Topic& topic) {
  CurrentLink().Abandon(topic);
  SettleDisconnected();
  ReportFault();
  if (p_.waits.Stopped()) return;
  p_.messages.prompts.Show(Icon::Critical,
                           Text(text::kConnectFailed) + " " + CurrentLink().Describe(topic));
}

bool Connection::Disconnect() { return Leave(Begin()); }

bool Connection::Leave(const Attempt& attempt) {
  if (p_.settings.LocalMode) {
    CurrentTopic = -1;
    return true;
  }
  if (CurrentTopic < 0) {
    if (!PendingTopic.empty()) CurrentLink().Cancel();
  } else if (!CurrentLink().Close(p_.topics[CurrentTopic], attempt)) {
    p_.transfer.Kind = TransferKind::Idle;
    p_.messages.Tell(Icon::Critical, text::kDisconnectFailed);
    ReportFault();
    return false;
  }
  if (attempt.IsLatest()) SettleDisconnected();
  ReportFault();
  return true;
}

// Clears `PendingTopic`, so that a late event can't set `CurrentTopic` again.
void Connection::SettleDisconnected() {
  p_.countdowns.IdleCountdown = 0;
  CurrentTopic = -1;
  PendingTopic.clear();
  p_.status.Connection = Text(text::kNotConnected);
  p_.status.Sequence.clear();
  p_.status.SetProgress({});
}

void Connection::ReportFault() {
  const std::string fault = CurrentLink().TakeFault();
  if (fault.empty() || p_.waits.Stopped()) return;
  p_.messages.Tell(Icon::Critical, CurrentLink().ErrorText(), {fault});
}

bool Connection::IsLinkUp() const { return CurrentTopic >= 0 && CurrentLink().IsConnected(); }

bool Connection::AwaitAllSent() {
  if (!IsLinkUp()) return false;
  p_.WaitWhile(CurrentLink().SendTimeOut(),
               [this] { return IsLinkUp() && !CurrentLink().AllSent(); });
  return IsLinkUp() && CurrentLink().AllSent();
}

void Connection::OnLinkText(std::string_view bytes) {
  const TextLoss loss = CurrentLink().Receive(
      bytes, [this](std::string_view text) { reader_.HandleReplyText(text, *this); });
  if (loss == TextLoss::Dropped) OnTextDropped();
  const bool lineCut = reader_.TakeDropped();
  if (loss != TextLoss::None || lineCut) TextLost();
  p_.status.Sequence = reader_.Sequence();
  p_.status.Changed();
}

// A read may lack lines of the listing; a write may have missed a refusal.
void Connection::TextLost() {
  ++linkFaults_;
  p_.transfer.TakeDamage(p_.countdowns);
}

void Connection::OnLinkUp() {
  // The server has reopened its line to the controller and lost the text in between.
  if (CurrentTopic >= 0 && p_.transfer.Kind != TransferKind::Idle) TextLost();
  if (!PendingTopic.empty()) CurrentTopic = ToInt16(Val(PendingTopic)).value_or(-1);
}

void Connection::OnReplyLine(std::string_view line) {
  ReplyLine = line;
  if (p_.transfer.Kind != TransferKind::Idle && CurrentTopic >= 0) {
    p_.status.Dot();
    p_.transfer.TakeReplyLine(line, p_.countdowns, p_.settings.GetTSCTimeoutTicks);
  }
  p_.log.Add(CurrentLink().ForLog(line));
}

void Connection::OnTextDropped() {
  if (!std::exchange(dropReported_, true)) p_.log.Add(Text(text::kTextDropped));
}

void Connection::OnLinkClosed() {
  // A waiting connect and a transfer report it themselves.
  const bool reportedElsewhere = CurrentTopic < 0 || p_.status.Busy > 0;
  const std::string name = CurrentTopic < 0 ? std::string() : p_.topics[CurrentTopic].TopicName;
  LinkLost();
  if (!reportedElsewhere) p_.messages.Tell(Icon::Exclamation, text::kLinkLost, {name});
}

void Connection::OnLinkError(const LinkFault& fault) {
  LinkLost();
  const std::string reason =
      fault.textNumber != 0 ? Text(fault.textNumber) : Windows1252FromUtf8(fault.systemMessage);
  p_.messages.Tell(Icon::Critical, CurrentLink().ErrorText(), {reason});
}

void Connection::LinkLost() {
  ++linkFaults_;
  p_.countdowns.ReplyCountdown = 0;
  if (CurrentTopic >= 0) SettleDisconnected();
}

void Connection::Tick() {
  p_.countdowns.Tick();
  TickIdle();
  if (CurrentTopic >= 0) CurrentLink().Poll();
}

void Connection::TickIdle() {
  std::int16_t& left = p_.countdowns.IdleCountdown;
  // `Busy` covers the pauses of a transfer, in which no line is expected.
  if (p_.transfer.Kind != TransferKind::Idle || p_.status.Busy > 0) left = 0;
  if (p_.settings.LocalMode || left == 0 || --left > 0) return;
  Disconnect();
  const int seconds = p_.settings.DisconnectTicks / kTicksPerSecond;
  p_.messages.prompts.Show(
      Icon::Information,
      Text(text::kIdleBefore) + " " + std::to_string(seconds) + " " + Text(text::kIdleAfter));
}

}  // namespace zek
