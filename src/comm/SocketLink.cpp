#include "comm/SocketLink.h"

#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {

void SocketLink::Open(Topic& topic, const Attempt& attempt) {
  text_.Reset(topic.HasDus);
  const auto sendTimeOut = p_.Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15");
  const auto pause = p_.Numbers().ReadSeconds("TCPIP", "DelayAfterConnect", "0");
  if (!sendTimeOut || !pause) return;
  if (State() != LinkState::Closed) {
    transport_.Close();
    AwaitClosed(*sendTimeOut, attempt);
  }
  if (!attempt.IsLatest()) return;
  transport_.Open(
      {std::string(GetField(topic.Address, 0, ":")), std::string(GetField(topic.Address, 1, ":"))});
  if (!topic.HasDus) return;  // the server sends "<TRANSPARENT>"
  const double dus = Val(GetField(topic.Address, 2, ":"));
  OpenDus(dus, *sendTimeOut, attempt);
  if (dus < 1) return;
  p_.countdowns.AfterConnectCountdown = TicksOf(*pause);
  p_.waits.While([&] {
    return p_.countdowns.AfterConnectCountdown > 0 && attempt.IsLatest() && IsConnected();
  });
}

// With a DUS number the server passes plain text through without a "<TRANSPARENT>".
void SocketLink::OpenDus(double dus, double sendTimeOut, const Attempt& attempt) {
  if (dus != 0) {
    AwaitConnected(sendTimeOut, attempt);
    if (attempt.IsLatest()) transport_.Send("DUS:" + FormatNumber(dus, '.') + "\r");
  }
  AwaitConnected(sendTimeOut, attempt);
  if (attempt.IsLatest() && IsConnected()) events_.OnLinkUp();
}

void SocketLink::AwaitConnected(double seconds, const Attempt& attempt) const {
  p_.WaitWhile(seconds, [&] { return State() == LinkState::Opening && attempt.IsLatest(); });
}

void SocketLink::AwaitClosed(double seconds, const Attempt& attempt) const {
  const ShowWaiting waiting(p_.status, p_.messages.Text(text::kWaitClose));
  p_.WaitWhile(seconds, [&] { return State() != LinkState::Closed && attempt.IsLatest(); });
}

bool SocketLink::Close(Topic& /*topic*/, const Attempt& attempt) {
  transport_.Close();
  AwaitClosed(p_.settings.DisconnectDelay, attempt);
  return true;
}

bool SocketLink::Write(std::string_view command) {
  const bool taken = transport_.Send(std::string(command) + (NeedsReturn(command) ? "\r" : ""));
  RunPending();
  RunPending();
  return taken;
}

TextLoss SocketLink::Receive(std::string_view bytes, const HandOver& handOver) {
  text_.Take(bytes, handOver);
  const bool torn = text_.TakeTorn();
  if (text_.TakeDropped()) return TextLoss::Dropped;
  return torn ? TextLoss::Torn : TextLoss::None;
}

std::int32_t SocketLink::ErrorText() const { return text::kSocketError; }

}  // namespace zek
