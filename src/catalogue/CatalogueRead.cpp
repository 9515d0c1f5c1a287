#include "catalogue/Catalogue.h"
#include "catalogue/CommandText.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::string_view kEnq("\x05", 1);
constexpr int kAttempts = 3;
constexpr int kTagAnswerSeconds = 3;

struct ReadDelays {
  std::int16_t a = 0;  // seconds after the connection was made
  std::int16_t b = 0;  // after ENQ
  std::int16_t d = 0;  // after the connection was closed
};

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

  // True when the listing has arrived whole, up to its "EXIT".
  bool Run() {
    const CountedUp busy(proc_.status, &StatusPanels::Busy);
    proc_.waits.CancelRequested = false;
    Outcome outcome = Outcome::Failed;
    for (int attempt = 1;
         attempt <= kAttempts && outcome == Outcome::Failed && !proc_.waits.Stopped(); ++attempt) {
      proc_.status.SetTransfer(AttemptText(proc_, text::kFetching, attempt));
      outcome = Attempt();
    }
    proc_.transfer.Kind = TransferKind::Idle;
    const bool stopped = proc_.waits.Stopped();
    proc_.waits.CancelRequested = false;
    if (outcome != Outcome::NoConnection) {
      proc_.status.Dot();
      proc_.connection.Disconnect();
      if (!stopped) Pause(delays_.d);
    }
    const bool stored = outcome == Outcome::Complete && Store();
    proc_.status.SetTransfer({});
    if (stored) TellDropped();
    if (outcome == Outcome::Failed && !stopped) {
      proc_.outside.prompts.Show(Icon::Exclamation, proc_.Text(text::kNoAnswer));
    }
    return stored;
  }

 private:
  enum class Outcome { Complete, Failed, NoConnection };

  Outcome Attempt() {
    Connection& connection = proc_.connection;
    proc_.transfer.CatalogueLines.clear();
    if (!connection.Disconnect()) return Outcome::NoConnection;
    connection.Connect(proc_.selection.CurrentObject);
    if (connection.CurrentTopic == -1) return Outcome::NoConnection;
    proc_.status.Dot();
    Pause(delays_.a);
    if (proc_.waits.Stopped()) return Outcome::Failed;
    connection.SendCommand(kEnq);
    proc_.status.Dot();
    Pause(delays_.b);
    if (proc_.waits.Stopped() || !connection.IsLinkUp()) return Outcome::Failed;
    proc_.transfer.Collect(KindOf(catalogue_));
    connection.SendCommand(ListCommand(proc_, catalogue_));
    proc_.status.Dot();
    AwaitListing(proc_.settings.GetTSCTimeoutTicks);
    if (proc_.settings.TagMode && !IsOver()) {
      connection.SendCommand("\r");
      AwaitListing(TicksOf(kTagAnswerSeconds));
    }
    return proc_.transfer.ExitSeen && !proc_.transfer.ErrorSeen ? Outcome::Complete
                                                                : Outcome::Failed;
  }

  bool IsOver() const {
    return proc_.transfer.Kind == TransferKind::Idle || proc_.transfer.ErrorSeen ||
           proc_.connection.CurrentTopic == -1;
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

  void TellDropped() const {
    if (proc_.transfer.LinesDropped == 0) return;
    proc_.outside.prompts.Show(
        Icon::Exclamation,
        Message(proc_.Text(text::kListingTooLong),
                {std::to_string(kMaxCatalogueLines), std::to_string(proc_.transfer.LinesDropped)}));
  }

  // The local copy of weekdays and exceptions of named time controls begins with the value.
  bool Store() {
    std::optional<std::string> dfv;
    if (catalogue_ != Catalogue::Sdc && HasNamedControls(proc_)) dfv = proc_.transfer.CatalogueDfv;
    const std::string& name = LocalFileOf(proc_.selection, catalogue_);
    const auto error =
        proc_.outside.files.Write(LocalPath(proc_.settings.ProgramPath, name),
                                  BuildLocalCopy(proc_.transfer.CatalogueLines, dfv));
    if (!error) {
      proc_.transfer.CatalogueLoaded = proc_.transfer.LinesDropped == 0;
      proc_.transfer.LoadedTopic = proc_.selection.CurrentObject;
      return true;
    }
    proc_.outside.prompts.Show(Icon::Exclamation, FileMessage(proc_.texts, *error));
    return false;
  }

  ZV_Proc& proc_;
  Catalogue catalogue_;
  ReadDelays delays_;
};

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

}  // namespace

bool GetCatalogue(ZV_Proc& proc, Catalogue catalogue) {
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
  return delays && CheckNameSendable(proc) && Reading(proc, catalogue, *delays).Run();
}

}  // namespace zek
