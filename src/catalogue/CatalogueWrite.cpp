#include <algorithm>
#include <array>

#include "catalogue/Catalogue.h"
#include "catalogue/CommandText.h"
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
      if (!Send(lines[i]) || !Pause("DelayE")) return false;
    }
    return true;
  }

  bool SendDfv() {
    if (catalogue_ == Catalogue::Sdc || !HasNamedControls(proc_)) return true;
    if (proc_.transfer.Kind == TransferKind::Idle) return true;
    // A local copy of exceptions holds no value: what the controller has is then left alone.
    if (catalogue_ == Catalogue::Ovc && !proc_.transfer.DfvKnown) return true;
    return Send(proc_.selection.TscName + ".DFV=" + proc_.transfer.CatalogueDfv) && Pause("DelayE");
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
  const std::string path =
      LocalPath(proc.settings.ProgramPath, LocalFileOf(proc.selection, catalogue));
  const auto error =
      proc.outside.files.Write(path, BuildLocalCopy(proc.transfer.CatalogueLines, dfv));
  if (error) proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
  return !error;
}

std::string WithFile(const ZV_Proc& proc, std::int32_t first, std::int32_t second,
                     const std::string& name) {
  return proc.Text(first) + "\r\n\r\n" + proc.Text(second) + " '" + name + "'";
}

}  // namespace

bool SaveCatalogue(ZV_Proc& proc, Catalogue catalogue) {
  const std::string name = LocalFileOf(proc.selection, catalogue);
  if (name.empty() || !Store(proc, catalogue)) return false;
  Prompts& prompts = proc.outside.prompts;
  if (proc.settings.LocalMode) {
    prompts.Show(Icon::Information,
                 WithFile(proc, text::kSavedLocally, text::kSavedLocallyFile, name));
    return true;
  }
  if (!prompts.AskYesNo(Icon::Question, WithFile(proc, text::kAskSend, text::kAskSendFile, name),
                        proc.Text(text::kSendTitle))) {
    return false;
  }
  // A pause that can't be kept is told before anything is sent.
  const bool delaysFit =
      std::all_of(kDelays.begin(), kDelays.end(),
                  [&proc](const DelaySetting& each) { return ReadDelay(proc, each.key); });
  if (!delaysFit || !CheckSendable(proc, catalogue)) return false;
  const bool sent = Writing(proc, catalogue).Run();
  if (sent) {
    prompts.Show(Icon::Information, proc.Text(text::kSendDone));
  } else {
    prompts.Show(Icon::Exclamation, proc.Text(text::kSendFailed));
  }
  return sent;
}

}  // namespace zek
