#include "comm/Connection.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr int kFirstLineSeconds = 10;

}  // namespace

bool Connection::SendCommand(std::string_view command) {
  if (p_.settings.LocalMode) return false;
  p_.countdowns.IdleCountdown = CurrentTopic >= 0 ? p_.settings.DisconnectTicks : std::int16_t{0};
  const bool taken = CurrentLink().IsConnected() && Write(command);
  if (!taken) {
    ++linkFaults_;
    ReportFault();
  }
  return taken;
}

void Connection::SendLast(std::string_view command) {
  const Waits::Finishing finishing(p_.waits);
  if (!IsLinkUp()) return;
  LogSent(command);
  if (CurrentLink().Write(command)) AwaitAllSent();
}

void Connection::LogSent(std::string_view command) {
  if (!p_.settings.LogCommands) return;
  p_.log.AddSent(WithoutSecret(command, CurrentLink().Secret()));
  p_.status.Changed();
}

bool Connection::Write(std::string_view command) {
  ++commands_;
  const Attempt latest(commands_);
  awaited_.reset();
  p_.countdowns.WaitCountdown = TicksOf(kFirstLineSeconds);  // also ends `awaited_`
  awaited_.emplace(p_);
  ReplyLine.clear();
  FirstLine.clear();
  LogSent(command);
  Sending = true;
  const bool taken = CurrentLink().Write(command);
  Sending = false;
  if (taken && latest.IsLatest() && !CurrentLink().IsPolled()) AwaitFirstLine(latest);
  if (latest.IsLatest()) awaited_.reset();
  return taken;
}

void Connection::AwaitFirstLine(const Attempt& command) {
  const Attempt attempt(attempts_);
  p_.WaitWhile(kFirstLineSeconds, [&] {
    return FirstLine.empty() && command.IsLatest() && attempt.IsLatest() &&
           CurrentLink().IsConnected();
  });
  if (!command.IsLatest()) return;
  // A controller that repeats the command refuses it in a later line.
  for (const std::string& line : {FirstLine, ReplyLine}) p_.transfer.TakeFirstLine(line);
  HideSecret();
}

}  // namespace zek
