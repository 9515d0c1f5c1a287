#include "comm/Connection.h"

#include <utility>

#include "lang/TextNumbers.h"
#include "text/Fields.h"
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
  const Topic& topic = p_.topics[index];
  p_.status.SetProgress(Text(text::kConnecting) + " " + topic.TopicName);
  connectWait_.emplace(p_.status, Text(text::kWaitConnect));
  CurrentAddress = topic.Address;
  PendingTopic = std::to_string(index);
  connecting_ = index;
  cause_.clear();
  reader_.Clear();
  lineBegan_.reset();
  dropReported_ = false;
  CurrentLink().Open(topic, attempt, steps_);
  if (!attempt.IsLatest()) return;
  steps_.Add(
      kLinkUpSeconds,
      [this] { return CurrentTopic >= 0 || CurrentLink().State() == LinkState::Closed; },
      [this] { SettleConnect(); });
  Await(attempt);
}

// Waits until all steps are taken.
void Connection::Await(const Attempt& attempt) {
  p_.waits.While([&] {
    steps_.Take();
    return steps_.AnyLeft() && attempt.IsLatest();
  });
  if (!attempt.IsLatest() || !steps_.AnyLeft()) return;
  // The user has cancelled, or the program ends.
  if (IsConnecting()) {
    steps_.Clear();
    SettleConnect();
  }
  steps_.TakeAll();
}

void Connection::SettleConnect() {
  const Topic& topic = p_.topics[std::exchange(connecting_, std::int16_t{-1})];
  connectWait_.reset();
  if (CurrentTopic >= 0) {
    Succeeded(topic);
  } else {
    Failed(topic);
  }
}

void Connection::Succeeded(const Topic& topic) {
  p_.transfer.Kind = TransferKind::Idle;
  p_.transfer.Refusal.clear();
  p_.countdowns.IdleCountdown = p_.settings.DisconnectTicks;
  p_.status.Connection = topic.Description + " (" + topic.TopicName + ")";
  p_.status.SetProgress({});
  ReportFault();
}

// The message comes last, because it runs events.
void Connection::Failed(const Topic& topic) {
  if (cause_.empty()) cause_ = CauseOfSilence();
  CurrentLink().Abandon(topic, steps_);
  SettleDisconnected();
  steps_.After(0, [this, attempt = Attempt(attempts_), name = CurrentLink().Describe(topic),
                   address = CurrentLink().Where(topic)] {
    if (attempt.IsLatest() && !p_.waits.Stopped()) ReportFailed(name, address);
  });
}

void Connection::ReportFailed(const std::string& name, const std::string& address) {
  std::string fault = CurrentLink().TakeFault();
  if (fault.empty() && CurrentLink().IsPolled()) fault = Text(text::kTagRefused);
  if (cause_.empty() && !fault.empty()) cause_ = Fault(fault);
  std::string message = Text(text::kConnectFailed) + " " + name;
  if (!address.empty()) message += "\r\n" + p_.messages.Text(text::kConnectWhere, {address});
  if (!cause_.empty()) message += "\r\n" + cause_;
  ShowFault(message);
}

std::string Connection::CauseOfSilence() const {
  const LinkState state = CurrentLink().State();
  if (state == LinkState::Opening) return Fault(Text(text::kNobodyAnswers));
  if (state == LinkState::Connected) return Fault(Text(text::kLineNotOpened));
  return {};
}

bool Connection::Disconnect() { return Leave(Begin()); }

bool Connection::Leave(const Attempt& attempt) {
  if (p_.settings.LocalMode) {
    CurrentTopic = -1;
    return true;
  }
  const bool isOpen = IsConnecting() || CurrentTopic >= 0;
  const std::int16_t idle = std::exchange(p_.countdowns.IdleCountdown, std::int16_t{0});
  if (IsConnecting()) steps_.Clear();
  if (CurrentTopic < 0) {
    if (IsConnecting()) CurrentLink().Abandon(p_.topics[connecting_], steps_);
  } else if (CurrentLink().Close(p_.topics[CurrentTopic], attempt, steps_)) {
    ++linkFaults_;  // an earlier operation may still use it
    if (!attempt.IsLatest()) return true;
  } else {
    const std::string fault = CurrentLink().TakeFault();
    p_.countdowns.IdleCountdown = idle;
    p_.transfer.Kind = TransferKind::Idle;
    p_.messages.prompts.Show(Icon::Critical,
                             p_.messages.Text(text::kDisconnectFailed,
                                              {CurrentLink().Describe(p_.topics[CurrentTopic])}) +
                                 (fault.empty() ? "" : "\r\n" + Fault(fault)));
    return false;
  }
  connecting_ = -1;
  connectWait_.reset();
  SettleDisconnected();
  const ShowWaiting waiting(p_.status, steps_.AnyLeft() ? Text(text::kWaitClose) : "");
  Await(attempt);
  if (isOpen) ReportFault();
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
  if (!fault.empty() && !p_.waits.Stopped()) OnLinkFault(fault);
}

bool Connection::IsLinkUp() const { return CurrentTopic >= 0 && CurrentLink().IsConnected(); }

bool Connection::AwaitAllSent() {
  if (!IsLinkUp()) return false;
  p_.WaitWhile(CurrentLink().SendTimeOut(),
               [this] { return IsLinkUp() && !CurrentLink().AllSent(); });
  return IsLinkUp() && CurrentLink().AllSent();
}

void Connection::OnLinkText(std::string_view bytes) {
  Link& link = CurrentLink();
  secret_ = link.Secret();
  timed_ = false;
  const TextLoss loss =
      link.Receive(bytes, [this](std::string_view text) { reader_.HandleReplyText(text, *this); });
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
  lineBegan_.reset();  // the reader drops the unfinished line
  // The server has reopened its line to the controller and lost the text in between.
  if (CurrentTopic >= 0 && p_.transfer.Kind != TransferKind::Idle) TextLost();
  if (!PendingTopic.empty()) CurrentTopic = ToInt16(Val(PendingTopic)).value_or(-1);
}

void Connection::OnReplyLine(std::string_view line) {
  ReplyLine = line;
  if (FirstLine.empty()) FirstLine = line;
  if (!line.empty()) awaited_.reset();
  if (p_.transfer.Kind != TransferKind::Idle && CurrentTopic >= 0) {
    p_.status.Dot();
    p_.transfer.TakeReplyLine(line, p_.countdowns, p_.settings.GetTSCTimeoutTicks);
    HideSecret();
  }
  if (!timed_ || lineBegan_) TimeLine();
  if (secret_.empty()) {
    p_.log.AddReply(line);
  } else {
    p_.log.AddReply(WithoutSecret(line, secret_));
  }
}

// Messages repeat a refusal.
void Connection::HideSecret() {
  std::string& refusal = p_.transfer.Refusal;
  if (!refusal.empty()) refusal = WithoutSecret(refusal, secret_);
}

void Connection::OnLineBegun() { lineBegan_ = p_.log.Now(); }

// Once for all lines of a text, except for one that began in an earlier text.
void Connection::TimeLine() {
  timed_ = !lineBegan_;
  p_.log.SetTime(timed_ ? p_.log.Now() : *std::exchange(lineBegan_, std::nullopt));
}

void Connection::OnTextDropped() {
  if (!std::exchange(dropReported_, true)) p_.log.Add(Text(text::kTextDropped));
}

void Connection::OnLinkClosed() {
  // A transfer reports it itself.
  const bool reportedElsewhere = IsConnecting() || p_.status.Busy > 0 || CurrentTopic < 0;
  const std::string name = reportedElsewhere ? "" : p_.topics[CurrentTopic].TopicName;
  if (IsConnecting()) cause_ = Fault(Text(text::kServerClosed));
  LinkLost();
  if (!reportedElsewhere) p_.messages.Tell(Icon::Exclamation, text::kLinkLost, {name});
}

void Connection::OnLinkError(const LinkFault& fault) {
  const std::string reason =
      fault.textNumber != 0 ? Text(fault.textNumber) : Windows1252FromUtf8(fault.systemMessage);
  const std::int16_t topic = CurrentTopic;
  if (IsConnecting()) {
    cause_ = Fault(reason);
    LinkLost();
  } else {
    LinkLost();
    ReportLinkFault(topic, reason);
  }
}

void Connection::OnLinkFault(const std::string& reason) { ReportLinkFault(CurrentTopic, reason); }

void Connection::ReportLinkFault(std::int16_t topic, const std::string& reason) {
  std::string message = Fault(reason);
  if (p_.topics.Has(topic)) message += "\r\n" + CurrentLink().Describe(p_.topics[topic]);
  ShowFault(message);
}

// A transfer reports it at its end, once.
void Connection::ShowFault(const std::string& message) {
  if (p_.status.Busy > 0) {
    p_.transfer.LinkFault = message;
  } else {
    p_.messages.prompts.Show(Icon::Critical, message);
  }
}

// A connect that waits then fails by its own step.
void Connection::LinkLost() {
  ++linkFaults_;
  awaited_.reset();
  p_.countdowns.ReplyCountdown = 0;
  if (CurrentTopic >= 0) SettleDisconnected();
}

void Connection::Tick() {
  p_.countdowns.Tick();
  if (p_.countdowns.WaitCountdown == 0) awaited_.reset();
  steps_.Tick();
  steps_.Take();
  TickIdle();
  if (CurrentTopic >= 0) CurrentLink().Poll();
}

void Connection::TickIdle() {
  std::int16_t& left = p_.countdowns.IdleCountdown;
  // `Busy` covers the pauses of a transfer, in which no line is expected.
  if (p_.transfer.Kind != TransferKind::Idle || p_.status.Busy > 0) left = 0;
  if (p_.settings.LocalMode || left == 0 || --left > 0 || CurrentTopic < 0) return;
  const std::string name = CurrentLink().Describe(p_.topics[CurrentTopic]);
  if (!Disconnect()) return;
  const int seconds = p_.settings.DisconnectTicks / kTicksPerSecond;
  p_.messages.prompts.Show(Icon::Information, Text(text::kIdleBefore) + " " +
                                                  std::to_string(seconds) + " " +
                                                  Text(text::kIdleAfter) + "\r\n" + name);
}

}  // namespace zek
