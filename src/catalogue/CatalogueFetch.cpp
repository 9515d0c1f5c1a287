#include "catalogue/CatalogueFetch.h"

#include <utility>

namespace zek {
namespace {

constexpr std::string_view kEnq("\x05", 1);
constexpr int kTagAnswerSeconds = 3;

class Fetching {
 public:
  Fetching(const CatalogueId& id, const CatalogueParts& parts, const FetchDelays& delays)
      : id_(id),
        settings_(parts.settings),
        messages_(parts.messages),
        x_(parts.exchange),
        delays_(delays) {}

  Fetched Run(std::int32_t statusText) {
    const CountedUp busy(x_.status, &StatusPanels::Busy);
    Waits::Cancellable cancellable(x_.waits);
    FetchOutcome outcome = FetchOutcome::Failed;
    for (int attempt = 1;
         attempt <= kAttempts && outcome == FetchOutcome::Failed && !x_.waits.Stopped();
         ++attempt) {
      x_.status.SetTransfer(AttemptText(messages_, statusText, attempt));
      outcome = Attempt();
    }
    x_.transfer.Kind = TransferKind::Idle;
    const bool stopped = x_.waits.Stopped();
    cancellable.TakeBack();
    Fetched fetched{outcome, Listing(outcome), x_.transfer.Refusal, x_.transfer.LinkFault};
    if (outcome != FetchOutcome::NoConnection) {
      x_.status.Dot();
      x_.connection.Disconnect();
      if (!stopped) Pause(delays_.d);
    }
    x_.status.SetTransfer({});
    if (outcome == FetchOutcome::Failed && stopped) fetched.outcome = FetchOutcome::Stopped;
    return fetched;
  }

 private:
  FetchOutcome Attempt() {
    x_.transfer.CatalogueLines.clear();
    x_.transfer.Refusal.clear();
    x_.transfer.LinkFault.clear();
    if (!x_.connection.Disconnect()) return FetchOutcome::NoConnection;
    x_.connection.Connect(id_.object);
    if (x_.connection.CurrentTopic == -1) return FetchOutcome::NoConnection;
    x_.status.Dot();
    Pause(delays_.a);
    if (x_.waits.Stopped() || !IsConnected()) return FetchOutcome::Failed;
    x_.connection.SendCommand(kEnq);
    x_.status.Dot();
    Pause(delays_.b);
    if (x_.waits.Stopped() || !IsConnected()) return FetchOutcome::Failed;
    x_.transfer.Collect(id_.Kind().read, id_.control);
    x_.connection.SendCommand(id_.ListCommand());
    x_.status.Dot();
    AwaitListing(settings_.GetTSCTimeoutTicks);
    if (x_.connection.IsPolled() && !IsOver()) {
      x_.connection.SendCommand("\r");
      AwaitListing(TicksOf(kTagAnswerSeconds));
    }
    return x_.transfer.ExitSeen && !x_.transfer.ErrorSeen ? FetchOutcome::Complete
                                                          : FetchOutcome::Failed;
  }

  CatalogueContent Listing(FetchOutcome outcome) const {
    if (outcome != FetchOutcome::Complete) return {};
    const bool listed = id_.IsOfControl() && x_.transfer.DfvSeen;
    const auto dfv = listed ? std::optional(x_.transfer.CatalogueDfv) : std::nullopt;
    return {x_.transfer.CatalogueLines, dfv, LinesFrom::Controller, x_.transfer.LinesDropped};
  }

  bool IsOver() const {
    return x_.transfer.Kind == TransferKind::Idle || x_.transfer.ErrorSeen ||
           x_.connection.CurrentTopic != id_.object;
  }

  // True while connected to the object of this catalogue. Events during a wait can change that.
  bool IsConnected() const {
    return x_.connection.IsLinkUp() && x_.connection.CurrentTopic == id_.object;
  }

  // The reply handler restarts the countdown with every line, so this time-out measures silence.
  void AwaitListing(std::int16_t ticks) {
    x_.countdowns.ReplyCountdown = ticks;
    const ShowWaiting waiting(x_.status, ListingText());
    std::int16_t shown = 0;
    x_.waits.While([&] {
      if (shown != x_.transfer.CatalogueLineCount()) {
        shown = x_.transfer.CatalogueLineCount();
        x_.status.SetWaiting(ListingText());
      }
      return x_.countdowns.ReplyCountdown > 0 && !IsOver();
    });
  }

  std::string ListingText() const {
    return messages_.Text(text::kWaitListing, {std::to_string(x_.transfer.CatalogueLineCount())});
  }

  void Pause(std::int16_t seconds) {
    const ShowWaiting waiting(x_.status, messages_.Text(text::kWaitPause));
    x_.waits.WaitSeconds(seconds);
  }

  const CatalogueId& id_;
  const Settings& settings_;
  const Messages& messages_;
  const Exchange& x_;
  FetchDelays delays_;
};

}  // namespace

std::optional<FetchDelays> ReadFetchDelays(const NumberReader& numbers) {
  const auto read = [&numbers](std::string_view key, std::string_view fallback) {
    return numbers.ReadSeconds("GetDelay", key, fallback);
  };
  const auto a = read("DelayA", "3");
  const auto b = a ? read("DelayB", "2") : a;
  const auto d = b ? read("DelayD", "2") : b;
  if (!d) return std::nullopt;
  return FetchDelays{*a, *b, *d};
}

Fetched FetchCatalogue(const CatalogueId& id, const CatalogueParts& parts,
                       const FetchDelays& delays, std::int32_t statusText) {
  return Fetching(id, parts, delays).Run(statusText);
}

void TellFetchFailure(const Fetched& fetched, const CatalogueId& id, const CatalogueParts& parts,
                      std::int32_t number) {
  const Messages& messages = parts.messages;
  if (fetched.outcome == FetchOutcome::NoConnection && !fetched.linkFault.empty()) {
    return messages.prompts.Show(Icon::Critical, fetched.linkFault);
  }
  if (fetched.outcome != FetchOutcome::Failed) return;
  std::string message = messages.Text(number);
  if (!fetched.refusal.empty()) {
    message += "\r\n\r\n" + messages.Text(text::kControllerError) + " " + fetched.refusal;
  }
  if (!fetched.linkFault.empty()) message += "\r\n\r\n" + fetched.linkFault;
  messages.prompts.Show(Icon::Exclamation, parts.About(id, std::move(message)));
}

}  // namespace zek
