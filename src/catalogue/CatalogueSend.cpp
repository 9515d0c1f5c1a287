#include "catalogue/CatalogueSend.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "catalogue/CatalogueFetch.h"
#include "catalogue/Sendable.h"

namespace zek {
namespace {

struct DelaySetting {
  std::string_view key;
  std::string_view seconds;  // the default
};

constexpr auto kDelays = std::to_array<DelaySetting>({
    {"DelayA", "2"},  // after connecting, before the first "EXIT"
    {"DelayB", "4"},  // before the second "EXIT"
    {"DelayC", "8"},  // before the selector command
    {"DelayD", "4"},  // after it, before the first line
    {"DelayE", "2"},  // after every line and the ".DFV=" command
    {"DelayF", "2"},  // twice after the closing "EXIT"
    {"DelayG", "2"},  // before disconnecting
    {"DelayH", "2"},  // after disconnecting
});

// The setting is read at each use, so that a delay can be changed without a restart.
std::optional<std::int16_t> ReadDelay(const NumberReader& numbers, std::string_view key) {
  const auto* const delay = std::find_if(
      kDelays.begin(), kDelays.end(), [key](const DelaySetting& each) { return each.key == key; });
  return numbers.ReadSeconds("SaveDelay", key, delay->seconds);
}

class Sending {
 public:
  Sending(const CatalogueId& id, const LinesToSend& content, const CatalogueParts& parts)
      : id_(id), content_(content), parts_(parts), x_(parts.exchange) {}

  SendReport Run() {
    const CountedUp busy(x_.status, &StatusPanels::Busy);
    std::optional<Waits::Cancellable> cancellable(std::in_place, x_.waits);
    bool sent = false;
    bool connected = true;
    for (int attempt = 1; attempt <= kAttempts && !sent && connected && !x_.waits.Stopped();
         ++attempt) {
      x_.status.SetTransfer(AttemptText(parts_.messages, text::kSending, attempt));
      connected = Open();
      sent = connected && Attempt() && x_.transfer.Kind != TransferKind::Idle;
    }
    x_.status.Sending = {};
    report_.cancelled = !sent && x_.waits.Cancelled();
    // Else the controller would wait for the rest of the catalogue.
    if (inCatalogue_ && x_.waits.Stopped() && x_.connection.CurrentTopic == id_.object) {
      x_.connection.SendLast("EXIT");
    }
    cancellable.reset();  // all is sent or given up
    x_.status.Dot();
    Pause("DelayG");
    // The reply to the last line can arrive this late, and it counts.
    sent = sent && x_.transfer.Kind != TransferKind::Idle && IsLinkWhole() &&
           x_.connection.AwaitAllSent();
    if (!sent) {
      report_.refusal = x_.transfer.Refusal;
      report_.linkFault = x_.transfer.LinkFault;
    }
    x_.connection.Disconnect();
    Pause("DelayH");
    x_.transfer.Kind = TransferKind::Idle;
    x_.status.SetTransfer({});
    if (sent) {
      report_.outcome = SendOutcome::Sent;
    } else if (begun_) {
      report_.outcome = SendOutcome::Failed;
    }
    return report_;
  }

 private:
  bool Open() {
    x_.transfer.LinkFault.clear();
    if (!x_.connection.Disconnect()) return false;
    x_.connection.Connect(id_.object);
    faults_ = x_.connection.LinkFaults();
    return x_.connection.CurrentTopic != -1 && !x_.waits.Stopped();
  }

  // Each step waits for its pause and continues only while the link is up.
  bool Attempt() {
    x_.transfer.Refusal.clear();
    const ShowWaiting preparing(x_.status, parts_.messages.Text(text::kWaitPause));
    report_.linesSent = 0;
    if (!Pause("DelayA") || !Send("EXIT")) return false;
    if (!Pause("DelayB") || !Send("EXIT")) return false;
    if (!Pause("DelayC")) return false;
    x_.transfer.Begin(id_.Kind().write, id_.control);
    begun_ = inCatalogue_ = true;
    ShowSteps(0);  // some controllers drop the old lines at the selector already
    if (!Send(id_.SelectorCommand()) || !Pause("DelayD")) return false;
    x_.status.Dot();
    x_.countdowns.ReplyCountdown = parts_.settings.GetTSCTimeoutTicks;
    if (!SendLines()) return false;
    ShowSteps(content_.lines.size());
    const ShowWaiting waiting(
        x_.status,
        parts_.messages.Text(text::kSendingEnd, {std::to_string(x_.status.Sending.secondsLeft)}));
    if (!SendDfv()) return false;
    // "EXIT" ends the controller's input even after it refused a line.
    inCatalogue_ = false;
    if (!Send("EXIT") || !Pause("DelayF")) return false;
    x_.status.Dot();
    return Pause("DelayF");
  }

  // The pauses from a line to the end; what the controller takes to answer is not known.
  int SecondsLeft(std::size_t line) const {
    const auto pause = [this](std::string_view key) {
      return int{ReadDelay(parts_.numbers, key).value_or(0)};
    };
    const int commands = static_cast<int>(content_.lines.size() - line) + (content_.dfv ? 1 : 0);
    return commands * pause("DelayE") + 2 * pause("DelayF") + pause("DelayG") + pause("DelayH");
  }

  void ShowSteps(std::size_t done) {
    x_.status.Sending = {done, std::max<std::size_t>(content_.lines.size(), 1), SecondsLeft(done),
                         id_.IsShared()};
  }

  bool SendLines() {
    const std::string count = std::to_string(content_.lines.size());
    for (std::size_t i = 0; i < content_.lines.size() && x_.transfer.Kind != TransferKind::Idle;
         ++i) {
      ShowSteps(i);
      const ShowWaiting waiting(
          x_.status, parts_.messages.Text(text::kSendingLine,
                                          {std::to_string(i + 1), count,
                                           std::to_string(x_.status.Sending.secondsLeft)}));
      const std::string& line = content_.lines[i];
      if (IsBlank(line)) continue;  // the controller would read it as a command
      if (!Send(line)) return false;
      ++report_.linesSent;
      if (!Pause("DelayE")) return false;
    }
    return true;
  }

  bool SendDfv() {
    if (!content_.dfv || x_.transfer.Kind == TransferKind::Idle) return true;
    return Send(id_.control + ".DFV=" + *content_.dfv) && Pause("DelayE");
  }

  bool Send(std::string_view command) {
    const bool taken = x_.connection.SendCommand(command);
    x_.status.Dot();
    return taken && IsLinkWhole();
  }

  bool Pause(std::string_view key) {
    const std::optional<std::int16_t> seconds = ReadDelay(parts_.numbers, key);
    if (!seconds) return false;
    x_.waits.WaitSeconds(*seconds);
    return IsLinkWhole();
  }

  bool IsLinkWhole() const {
    return !x_.waits.Stopped() && x_.connection.CurrentTopic == id_.object &&
           x_.connection.LinkFaults() == faults_;
  }

  const CatalogueId& id_;
  const LinesToSend& content_;
  const CatalogueParts& parts_;
  const Exchange& x_;
  std::uint32_t faults_ = 0;  // link faults when this attempt connected
  SendReport report_;
  bool inCatalogue_ = false;  // the controller waits for lines until "EXIT"
  bool begun_ = false;        // sending the catalogue began; the controller may have changed it
};

}  // namespace

SendReport SendCatalogue(const CatalogueId& id, const LinesToSend& content,
                         const CatalogueParts& parts) {
  return Sending(id, content, parts).Run();
}

int SendSeconds(const NumberReader& numbers, std::size_t lines) {
  int seconds = 0;
  for (const DelaySetting& each : kDelays) {
    const int times = each.key == "DelayE" ? static_cast<int>(lines) : each.key == "DelayF" ? 2 : 1;
    seconds += times * ReadDelay(numbers, each.key).value_or(0);
  }
  return seconds;
}

bool CheckSendDelays(const NumberReader& numbers) {
  return std::all_of(kDelays.begin(), kDelays.end(), [&numbers](const DelaySetting& each) {
    return ReadDelay(numbers, each.key).has_value();
  });
}

}  // namespace zek
