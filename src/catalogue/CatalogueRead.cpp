#include "catalogue/Catalogue.h"
#include "catalogue/CommandText.h"
#include "catalogue/LastRead.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::string_view kEnq("\x05", 1);
constexpr int kAttempts = 3;
constexpr int kTagAnswerSeconds = 3;

TransferKind KindOf(Catalogue catalogue) {
  switch (catalogue) {
    case Catalogue::Sdc:
      return TransferKind::ReadSdc;
    case Catalogue::Wdc:
      return TransferKind::ReadWdc;
    case Catalogue::Ovc:
      break;
  }
  return TransferKind::ReadOvc;
}

std::string ListCommand(const ZV_Proc& proc, Catalogue catalogue) {
  if (catalogue == Catalogue::Sdc) return "LIST SDC";
  const bool weekday = catalogue == Catalogue::Wdc;
  if (!HasNamedControls(proc)) return weekday ? "LIST WDC" : "LIST OVC";
  return "LIST " + proc.selection.TscName + (weekday ? "" : ".EXC");
}

class Reading {
 public:
  Reading(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays)
      : proc_(proc), catalogue_(catalogue), delays_(delays) {}

  FetchOutcome Run(std::int32_t statusText) {
    const CountedUp busy(proc_.status, &StatusPanels::Busy);
    proc_.waits.CancelRequested = false;
    FetchOutcome outcome = FetchOutcome::Failed;
    for (int attempt = 1;
         attempt <= kAttempts && outcome == FetchOutcome::Failed && !proc_.waits.Stopped();
         ++attempt) {
      proc_.status.SetTransfer(AttemptText(proc_, statusText, attempt));
      outcome = Attempt();
    }
    proc_.transfer.Kind = TransferKind::Idle;
    const bool stopped = proc_.waits.Stopped();
    proc_.waits.CancelRequested = false;
    if (outcome != FetchOutcome::NoConnection) {
      proc_.status.Dot();
      proc_.connection.Disconnect();
      if (!stopped) Pause(delays_.d);
    }
    proc_.status.SetTransfer({});
    return outcome == FetchOutcome::Failed && stopped ? FetchOutcome::Stopped : outcome;
  }

 private:
  FetchOutcome Attempt() {
    Connection& connection = proc_.connection;
    proc_.transfer.CatalogueLines.clear();
    if (!connection.Disconnect()) return FetchOutcome::NoConnection;
    connection.Connect(proc_.selection.CurrentObject);
    if (connection.CurrentTopic == -1) return FetchOutcome::NoConnection;
    proc_.status.Dot();
    Pause(delays_.a);
    if (proc_.waits.Stopped() || !IsConnected()) return FetchOutcome::Failed;
    connection.SendCommand(kEnq);
    proc_.status.Dot();
    Pause(delays_.b);
    if (proc_.waits.Stopped() || !IsConnected()) return FetchOutcome::Failed;
    proc_.transfer.Collect(KindOf(catalogue_));
    connection.SendCommand(ListCommand(proc_, catalogue_));
    proc_.status.Dot();
    AwaitListing(proc_.settings.GetTSCTimeoutTicks);
    if (proc_.settings.TagMode && !IsOver()) {
      connection.SendCommand("\r");
      AwaitListing(TicksOf(kTagAnswerSeconds));
    }
    return proc_.transfer.ExitSeen && !proc_.transfer.ErrorSeen ? FetchOutcome::Complete
                                                                : FetchOutcome::Failed;
  }

  bool IsOver() const {
    return proc_.transfer.Kind == TransferKind::Idle || proc_.transfer.ErrorSeen ||
           proc_.connection.CurrentTopic != proc_.selection.CurrentObject;
  }

  // To the object whose catalogue this is, whatever came during a wait.
  bool IsConnected() const {
    return proc_.connection.IsLinkUp() &&
           proc_.connection.CurrentTopic == proc_.selection.CurrentObject;
  }

  // The reply handler loads the countdown again with every line: a time-out of silence.
  void AwaitListing(std::int16_t ticks) {
    proc_.countdowns.ReplyCountdown = ticks;
    const ShowWaiting waiting(proc_.status, ListingText());
    std::int16_t shown = 0;
    proc_.waits.While([&] {
      if (shown != proc_.transfer.CatalogueLineCount()) {
        shown = proc_.transfer.CatalogueLineCount();
        proc_.status.SetWaiting(ListingText());
      }
      return proc_.countdowns.ReplyCountdown > 0 && !IsOver();
    });
  }

  std::string ListingText() const {
    return Message(proc_.Text(text::kWaitListing),
                   {std::to_string(proc_.transfer.CatalogueLineCount())});
  }

  void Pause(std::int16_t seconds) {
    const ShowWaiting waiting(proc_.status, proc_.Text(text::kWaitPause));
    proc_.waits.WaitSeconds(seconds);
  }

  ZV_Proc& proc_;
  Catalogue catalogue_;
  ReadDelays delays_;
};

// The local copy of weekdays and exceptions of named time controls begins with the value.
bool Store(ZV_Proc& proc, Catalogue catalogue) {
  std::optional<std::string> dfv;
  if (catalogue != Catalogue::Sdc && HasNamedControls(proc)) dfv = proc.transfer.CatalogueDfv;
  if (!StoreLocalCopy(proc, catalogue, dfv)) return false;
  proc.transfer.CatalogueLoaded = proc.transfer.LinesDropped == 0;
  proc.transfer.LoadedTopic = proc.selection.CurrentObject;
  return true;
}

void TellDropped(ZV_Proc& proc) {
  if (proc.transfer.LinesDropped == 0) return;
  proc.outside.prompts.Show(
      Icon::Exclamation,
      Message(proc.Text(text::kListingTooLong),
              {std::to_string(kMaxCatalogueLines), std::to_string(proc.transfer.LinesDropped)}));
}

bool FetchAndStore(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays) {
  const CountedUp busy(proc.status, &StatusPanels::Busy);
  const FetchOutcome outcome = FetchCatalogue(proc, catalogue, delays, text::kFetching);
  if (outcome == FetchOutcome::Failed) {
    proc.outside.prompts.Show(Icon::Exclamation, proc.Text(text::kNoAnswer));
  }
  if (outcome != FetchOutcome::Complete || !Store(proc, catalogue)) return false;
  TellDropped(proc);
  return true;
}

// A batch fetches afresh, but not the same catalogue twice; in local mode it takes what there is.
bool UseLocalCopyInBatch(const ZV_Proc& proc) {
  if (proc.settings.LocalMode) return true;
  const bool loaded =
      proc.transfer.CatalogueLoaded && proc.transfer.LoadedTopic == proc.selection.CurrentObject;
  return loaded && !proc.settings.AlwaysUseDSS;
}

bool UseLocalCopy(ZV_Proc& proc, Catalogue catalogue) {
  if (!HasLocalCopy(proc, catalogue)) return false;
  if (proc.batch.IsRunning()) return UseLocalCopyInBatch(proc);
  if (proc.settings.AlwaysUseDSS) return false;
  if (proc.settings.AlwaysUseLocal) return true;
  return proc.outside.prompts.AskYesNo(Icon::Question,
                                       proc.Text(text::kUseLocalCopy) + " (" +
                                           UpperCase(LocalFileOf(proc.selection, catalogue)) + ").",
                                       proc.Text(text::kUseLocalCopyTitle));
}

void RefuseLocalMode(ZV_Proc& proc, Catalogue catalogue) {
  const std::string message =
      HasLocalCopy(proc, catalogue)
          ? proc.Text(text::kLocalCopyDeclined)
          : proc.Text(text::kNoLocalCopy) + "\r\n\r\n" + proc.Text(text::kNoLocalCopyAdvice);
  proc.outside.prompts.Show(Icon::Information, message);
}

bool GetOrLoad(ZV_Proc& proc, Catalogue catalogue) {
  if (LocalFileOf(proc.selection, catalogue).empty()) {
    proc.outside.prompts.Show(Icon::Information, proc.Text(text::kNoSuchCatalogue));
    return false;
  }
  proc.transfer.CatalogueDfv.assign(1, '.');
  if (UseLocalCopy(proc, catalogue)) return LoadLocalCopy(proc, catalogue);
  if (proc.settings.LocalMode) {
    RefuseLocalMode(proc, catalogue);
    return false;
  }
  const std::optional<ReadDelays> delays = ReadDelaysOf(proc);
  return delays && CheckNameSendable(proc) && FetchAndStore(proc, catalogue, *delays);
}

}  // namespace

std::optional<ReadDelays> ReadDelaysOf(ZV_Proc& proc) {
  const auto read = [&proc](std::string_view key, std::string_view fallback) {
    return proc.Numbers().ReadSeconds("GetDelay", key, fallback);
  };
  const auto a = read("DelayA", "3");
  const auto b = a ? read("DelayB", "2") : a;
  const auto d = b ? read("DelayD", "2") : b;
  if (!d) return std::nullopt;
  return ReadDelays{*a, *b, *d};
}

FetchOutcome FetchCatalogue(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays,
                            std::int32_t statusText) {
  return Reading(proc, catalogue, delays).Run(statusText);
}

bool GetCatalogue(ZV_Proc& proc, Catalogue catalogue) {
  // From inside a wait of another transfer, whose lines it would replace.
  if (proc.status.Busy > 0) return false;
  if (!GetOrLoad(proc, catalogue)) return false;
  RememberRead(proc, catalogue);
  return true;
}

}  // namespace zek
