#include <algorithm>
#include <string>
#include <vector>

#include "Demand.h"
#include "Targets.h"
#include "comm/ReplyLog.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"
#include "comm/Transfer.h"
#include "text/Controls.h"

namespace zek::fuzz {
namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kLinkUp = "<TRANSPARENT>";

// Everything between the socket and the catalogue.
class Receiver final : private ReplyEvents {
 public:
  explicit Receiver(bool hasDus) {
    socket_.Reset(hasDus);
    transfer_.Collect(TransferKind::ReadWdc);
  }

  void Take(std::string_view bytes) {
    socket_.Take(bytes, [this](std::string_view text) { reader_.HandleReplyText(text, *this); });
  }

  Lines lines;
  std::size_t linksUp = 0;

  const ReplyLog& Log() const { return log_; }
  const Transfer& Collected() const { return transfer_; }

 private:
  void OnLinkUp() override { ++linksUp; }
  void OnReplyLine(std::string_view line) override {
    lines.emplace_back(line);
    log_.Add(line);
    transfer_.TakeReplyLine(line, countdowns_, 1);
  }
  void OnTextDropped() override { Demand(false, "short text is kept whole"); }

  SocketText socket_;
  ReplyReader reader_;
  ReplyLog log_;
  Transfer transfer_;
  Countdowns countdowns_;
};

void Check(const Receiver& receiver) {
  const auto& shown = receiver.Log().Lines();
  Demand(shown.size() == std::min(receiver.lines.size(), ReplyLog::kLines),
         "each line is one of the log");
  for (const std::string& line : shown) {
    Demand(FindControl(line) == std::string::npos, "the log shows control characters");
  }
  Demand(receiver.Collected().CatalogueLines.size() <= kMaxCatalogueLines,
         "a catalogue keeps its limit");
}

// Splits the bytes into pieces of 1 to 32, with sizes taken from the bytes themselves.
Receiver InPieces(std::string_view bytes, bool hasDus) {
  Receiver receiver(hasDus);
  for (std::size_t length = 1; !bytes.empty(); bytes.remove_prefix(length)) {
    length =
        std::min<std::size_t>(1 + static_cast<unsigned char>(bytes.front()) % 32, bytes.size());
    receiver.Take(bytes.substr(0, length));
  }
  return receiver;
}

// Reads bytes at once, then in pieces, then the resulting lines again.
void ReadThreeTimes(std::string_view input, bool hasDus) {
  Receiver whole(hasDus);
  whole.Take(input);
  Check(whole);
  const Receiver pieces = InPieces(input, hasDus);
  Check(pieces);
  // A plain text is searched for "<TRANSPARENT>" as it arrives, so pieces may not contain it.
  if (hasDus && (whole.linksUp > 0 || pieces.linksUp > 0)) return;
  Demand(pieces.lines == whole.lines && pieces.linksUp == whole.linksUp,
         "it does not matter how the text is cut");

  std::string built;
  for (const std::string& line : whole.lines) {
    if (line.find(kLinkUp) != std::string::npos) return;
    built += (hasDus ? "" : "0001>") + line + "\r\n" + (hasDus ? "" : "\xFF");
  }
  Receiver again(hasDus);
  again.Take(built);
  Demand(again.lines == whole.lines, "lines that were built read the same");
}

}  // namespace

void ReplyPlain(std::string_view input) { ReadThreeTimes(input, true); }
void ReplyPieces(std::string_view input) { ReadThreeTimes(input, false); }

}  // namespace zek::fuzz
