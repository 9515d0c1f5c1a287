#include <algorithm>
#include <array>

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueVerify.h"
#include "catalogue/CommandText.h"
#include "catalogue/LastRead.h"
#include "catalogue/SendQuestion.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr int kAttempts = 3;

TransferKind KindOf(Catalogue catalogue) {
  switch (catalogue) {
    case Catalogue::Sdc:
      return TransferKind::WriteSdc;
    case Catalogue::Wdc:
      return TransferKind::WriteWdc;
    case Catalogue::Ovc:
      break;
  }
  return TransferKind::WriteOvc;
}

std::string SelectorCommand(const ZV_Proc& proc, Catalogue catalogue) {
  if (catalogue == Catalogue::Sdc) return ".SDC";
  const bool weekday = catalogue == Catalogue::Wdc;
  if (!HasNamedControls(proc)) return weekday ? ".WDC" : ".OVC";
  return proc.selection.TscName + (weekday ? ".WDC" : ".EXC");
}

struct DelaySetting {
  std::string_view key;
  std::string_view seconds;  // when the settings file does not say
};

constexpr auto kDelays = std::to_array<DelaySetting>({
    {"DelayA", "2"},  // after the connection was made, before the first "EXIT"
    {"DelayB", "4"},  // before the second "EXIT"
    {"DelayC", "8"},  // before the selector command
    {"DelayD", "4"},  // after it, before the first line
    {"DelayE", "2"},  // after every line and the ".DFV=" command
    {"DelayF", "2"},  // twice after the closing "EXIT"
    {"DelayG", "2"},  // before the connection is closed
    {"DelayH", "2"},  // after that
});

// Read at each use, so that a slow controller can be served without a restart.
std::optional<std::int16_t> ReadDelay(ZV_Proc& proc, std::string_view key) {
  const auto* const delay = std::find_if(
      kDelays.begin(), kDelays.end(), [key](const DelaySetting& each) { return each.key == key; });
  return proc.Numbers().ReadSeconds("SaveDelay", key, delay->seconds);
}

class Writing {
 public:
  Writing(ZV_Proc& proc, Catalogue catalogue) : proc_(proc), catalogue_(catalogue) {}

  // True when the controller took every line without an error.
  bool Run() {
    const CountedUp busy(proc_.status, &StatusPanels::Busy);
    proc_.waits.CancelRequested = false;
    bool sent = false;
    bool connected = true;
    for (int attempt = 1; attempt <= kAttempts && !sent && connected && !proc_.waits.Stopped();
         ++attempt) {
      proc_.status.SetTransfer(AttemptText(proc_, text::kSending, attempt));
      connected = Open();
      sent = connected && Attempt() && proc_.transfer.Kind != TransferKind::Idle;
    }
    proc_.status.Dot();
    Pause("DelayG");
    // An answer to the last line may come as late as this; it counts.
    sent = sent && proc_.transfer.Kind != TransferKind::Idle && IsLinkWhole() &&
           proc_.connection.AwaitAllSent();
    proc_.connection.Disconnect();
    Pause("DelayH");
    proc_.transfer.Kind = TransferKind::Idle;
    proc_.status.SetTransfer({});
    return sent;
  }

 private:
  bool Open() {
    if (!proc_.connection.Disconnect()) return false;
    proc_.connection.Connect(proc_.selection.CurrentObject);
    faults_ = proc_.connection.LinkFaults();
    return proc_.connection.CurrentTopic != -1 && !proc_.waits.Stopped();
  }

  // Each step waits its pause and goes on only while the link holds.
  bool Attempt() {
    proc_.transfer.Kind = TransferKind::Idle;
    if (!Pause("DelayA") || !Send("EXIT")) return false;
    if (!Pause("DelayB") || !Send("EXIT")) return false;
    if (!Pause("DelayC")) return false;
    proc_.transfer.Kind = KindOf(catalogue_);
    proc_.transfer.Last = {};  // from here on nobody knows what the controller has
    if (!Send(SelectorCommand(proc_, catalogue_)) || !Pause("DelayD")) return false;
    proc_.status.Dot();
    proc_.countdowns.ReplyCountdown = proc_.settings.GetTSCTimeoutTicks;
    if (!SendLines() || !SendDfv()) return false;
    // "EXIT" ends the controller's input also after a line that it refused.
    if (!Send("EXIT") || !Pause("DelayF")) return false;
    proc_.status.Dot();
    return Pause("DelayF");
  }

  bool SendLines() {
    const std::vector<std::string> lines = proc_.transfer.CatalogueLines;
    for (std::size_t i = 0; i < lines.size() && proc_.transfer.Kind != TransferKind::Idle; ++i) {
      const ShowWaiting waiting(proc_.status,
                                Message(proc_.Text(text::kSendingLine),
                                        {std::to_string(i + 1), std::to_string(lines.size())}));
      if (IsBlank(lines[i])) continue;  // of a file; the controller would take it for a command
      if (!Send(lines[i]) || !Pause("DelayE")) return false;
    }
    return true;
  }

  bool SendDfv() {
    const std::optional<std::string> dfv = DfvToSend(proc_, catalogue_);
    if (!dfv || proc_.transfer.Kind == TransferKind::Idle) return true;
    return Send(proc_.selection.TscName + ".DFV=" + *dfv) && Pause("DelayE");
  }

  bool Send(std::string_view command) {
    const bool taken = proc_.connection.SendCommand(command);
    proc_.status.Dot();
    return taken && IsLinkWhole();
  }

  bool Pause(std::string_view key) {
    const std::optional<std::int16_t> seconds = ReadDelay(proc_, key);
    if (!seconds) return false;
    proc_.waits.WaitSeconds(*seconds);
    return IsLinkWhole();
  }

  bool IsLinkWhole() const {
    return !proc_.waits.Stopped() &&
           proc_.connection.CurrentTopic == proc_.selection.CurrentObject &&
           proc_.connection.LinkFaults() == faults_;
  }

  ZV_Proc& proc_;
  Catalogue catalogue_;
  std::uint32_t faults_ = 0;  // link faults when this attempt's connection was made
};

// Only the weekday copy of a named time control holds its value; that of its exceptions does not.
bool Store(ZV_Proc& proc, Catalogue catalogue) {
  std::optional<std::string> dfv;
  if (catalogue == Catalogue::Wdc && HasNamedControls(proc)) dfv = proc.transfer.CatalogueDfv;
  return StoreLocalCopy(proc, catalogue, dfv);
}

std::string WithFile(const ZV_Proc& proc, std::int32_t first, std::int32_t second,
                     const std::string& name) {
  return proc.Text(first) + "\r\n\r\n" + proc.Text(second) + " '" + name + "'";
}

void TellSent(ZV_Proc& proc, bool sent) {
  if (sent) {
    proc.outside.prompts.Show(Icon::Information, proc.Text(text::kSendDone));
  } else {
    proc.outside.prompts.Show(Icon::Exclamation, proc.Text(text::kSendFailed));
  }
}

bool SendAndVerify(ZV_Proc& proc, Catalogue catalogue) {
  const std::optional<ReadDelays> delays = ReadDelaysOf(proc);
  if (!delays) return false;
  std::optional<Verification> verification;
  {
    const CountedUp busy(proc.status, &StatusPanels::Busy);  // without a gap between the two
    if (Writing(proc, catalogue).Run()) verification = VerifyCatalogue(proc, catalogue, *delays);
  }
  if (verification) return TellVerification(proc, *verification);
  TellSent(proc, false);
  return false;
}

}  // namespace

bool SaveCatalogue(ZV_Proc& proc, Catalogue catalogue) {
  // From inside a wait of another transfer, whose lines it would send.
  if (proc.status.Busy > 0) return false;
  const std::string name = LocalFileOf(proc.selection, catalogue);
  if (name.empty() || !Store(proc, catalogue)) return false;
  Prompts& prompts = proc.outside.prompts;
  if (proc.settings.LocalMode) {
    prompts.Show(Icon::Information,
                 WithFile(proc, text::kSavedLocally, text::kSavedLocallyFile, name));
    return true;
  }
  if (!AskSend(proc, catalogue, WithFile(proc, text::kAskSend, text::kAskSendFile, name))) {
    return false;
  }
  // A pause that can't be kept is told before anything is sent.
  const bool delaysFit =
      std::all_of(kDelays.begin(), kDelays.end(),
                  [&proc](const DelaySetting& each) { return ReadDelay(proc, each.key); });
  if (!delaysFit || !CheckSendable(proc, catalogue)) return false;
  if (proc.settings.VerifyAfterWrite) return SendAndVerify(proc, catalogue);
  const bool sent = Writing(proc, catalogue).Run();
  if (sent) RememberSent(proc, catalogue);
  TellSent(proc, sent);
  return sent;
}

}  // namespace zek
