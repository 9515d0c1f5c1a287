#include "comm/Connection.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr int kFirstLineSeconds = 10;
constexpr int kPendingRuns = 4;

// A text that ends in a control character is complete without a carriage return. Code 31 counts
// as printable, and so does an empty text: Enter on an empty line sends a bare carriage return.
bool EndsPrintable(std::string_view command) {
  return command.empty() || static_cast<unsigned char>(command.back()) >= 31;
}

}  // namespace

bool Connection::SendCommand(std::string_view command) {
  if (p_.settings.LocalMode || Sending) return false;
  p_.countdowns.IdleCountdown = CurrentTopic >= 0 ? p_.settings.DisconnectTicks : std::int16_t{0};
  const bool printable = EndsPrintable(command);
  if (p_.settings.TagMode) {
    const bool taken =
        CurrentTopic >= 0 && p_.tags.TagWrite(p_.topics[CurrentTopic].TopicName,
                                              std::string(command) + (printable ? "\r" : "")) != 0;
    if (!taken) {
      ++linkFaults_;
      TellTagFault();
    }
    return taken;
  }
  if (CurrentLink().State() != LinkState::Connected) {
    ++linkFaults_;
    return false;
  }
  const CountedUp hourglass(p_.status, &StatusPanels::Hourglass);
  const std::uint32_t serial = ++command_;
  ReplyLine.clear();
  Sending = true;
  const bool taken = WriteCommand(command, printable);
  Sending = false;
  if (!taken) ++linkFaults_;
  if (taken && serial == command_) AwaitFirstLine();
  return taken;
}

bool Connection::WriteCommand(std::string_view command, bool printable) {
  const auto runPending = [this] {
    for (int i = 0; i < kPendingRuns; ++i) p_.waits.RunPending();
  };
  std::string text(command);
  if (IsTcp() && printable) text += '\r';
  bool taken = CurrentLink().Send(text);
  runPending();
  // The DDE server turns "{13}" into the carriage return that a poked text can't hold.
  if (!IsTcp() && printable) taken = taken && CurrentLink().Send("{13}");
  runPending();
  return taken;
}

void Connection::AwaitFirstLine() {
  const std::uint32_t serial = command_;
  const std::uint32_t attempt = attempt_;
  {
    const ShowWaiting waiting(p_.status, Text(text::kWaitAnswer));
    p_.countdowns.WaitCountdown = TicksOf(kFirstLineSeconds);
    p_.waits.While([&] {
      return ReplyLine.empty() && p_.countdowns.WaitCountdown > 0 && serial == command_ &&
             attempt == attempt_ && CurrentLink().State() == LinkState::Connected;
    });
  }
  const bool failed = p_.transfer.Kind != TransferKind::Idle &&
                      UpperCase(ReplyLine).find("ERROR ") != std::string::npos;
  if (!failed || serial != command_) return;
  p_.transfer.Kind = TransferKind::Idle;
  p_.transfer.ErrorSeen = true;
  p_.prompts.Show(Icon::Exclamation, Text(text::kControllerError) + " " + ReplyLine);
}

}  // namespace zek
