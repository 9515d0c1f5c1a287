#include "comm/SocketLink.h"

#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {

void SocketLink::Open(const Topic& topic, const Attempt& attempt, Steps& steps) {
  text_.Reset(topic.HasDus);
  const auto sendTimeOut = p_.Numbers().ReadSeconds("TCPIP", "SendTimeOut", "15");
  const auto pause = p_.Numbers().ReadSeconds("TCPIP", "DelayAfterConnect", "0");
  if (!sendTimeOut || !pause || !attempt.IsLatest()) return;
  if (State() != LinkState::Closed) transport_.Close();
  steps.Add(*sendTimeOut, IsClosed(),
            [this, target = LinkTarget{std::string(GetField(topic.Address, 0, ":")),
                                       std::string(GetField(topic.Address, 1, ":"))}] {
              transport_.Open(target);
            });
  if (!topic.HasDus) return;  // the server sends "<TRANSPARENT>"
  OpenDus(Val(GetField(topic.Address, 2, ":")), *sendTimeOut, *pause, steps);
}

// With a DUS number the server passes plain text through without a "<TRANSPARENT>".
void SocketLink::OpenDus(double dus, double sendTimeOut, double pause, Steps& steps) {
  const auto isOpened = [this] { return State() != LinkState::Opening; };
  if (dus != 0) {
    steps.Add(sendTimeOut, isOpened,
              [this, dus] { transport_.Send("DUS:" + FormatNumber(dus, '.') + "\r"); });
  }
  steps.Add(sendTimeOut, isOpened, [this] {
    if (IsConnected()) events_.OnLinkUp();
  });
  if (dus >= 1) {
    steps.Add(
        pause, [this] { return !IsConnected(); }, [] {});
  }
}

bool SocketLink::Close(const Topic& /*topic*/, const Attempt& /*attempt*/, Steps& steps) {
  transport_.Close();
  steps.Add(p_.settings.DisconnectDelay, IsClosed(), [] {});
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
