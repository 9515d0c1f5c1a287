#include "comm/Connection.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr int kFirstLineSeconds = 10;

}  // namespace

bool Connection::SendCommand(std::string_view command) {
  if (p_.settings.LocalMode || Sending) return false;
  p_.countdowns.IdleCountdown = CurrentTopic >= 0 ? p_.settings.DisconnectTicks : std::int16_t{0};
  const bool taken = CurrentLink().IsConnected() && Write(command);
  if (!taken) {
    ++linkFaults_;
    ReportFault();
  }
  return taken;
}

bool Connection::Write(std::string_view command) {
  const CountedUp hourglass(p_.status, &StatusPanels::Hourglass);
  ++commands_;
  const Attempt latest(commands_);
  ReplyLine.clear();
  Sending = true;
  const bool taken = CurrentLink().Write(command);
  Sending = false;
  if (taken && latest.IsLatest() && !CurrentLink().IsPolled()) AwaitFirstLine(latest);
  return taken;
}

void Connection::AwaitFirstLine(const Attempt& command) {
  const Attempt attempt(attempts_);
  {
    const ShowWaiting waiting(p_.status, Text(text::kWaitAnswer));
    p_.WaitWhile(kFirstLineSeconds, [&] {
      return ReplyLine.empty() && command.IsLatest() && attempt.IsLatest() &&
             CurrentLink().IsConnected();
    });
  }
  const bool failed = p_.transfer.Kind != TransferKind::Idle &&
                      UpperCase(ReplyLine).find("ERROR ") != std::string::npos;
  if (!failed || !command.IsLatest()) return;
  p_.transfer.Kind = TransferKind::Idle;
  p_.transfer.ErrorSeen = true;
  p_.messages.prompts.Show(Icon::Exclamation, Text(text::kControllerError) + " " + ReplyLine);
}

}  // namespace zek
