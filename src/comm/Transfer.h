#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "comm/Countdowns.h"
#include "formats/CatalogueLine.h"

namespace zek {

/// The state of the reply handler; the values are those of the catalogue kinds.
enum class TransferKind : std::int16_t {
  Idle = 0,
  ReadSdc = 1,
  ReadWdc = 2,
  WriteSdc = 3,
  WriteWdc = 4,
  ReadOvc = 5,
  WriteOvc = 6,
  ReadWdcExceptions = 7,  // the ".EXC" part of a weekday listing: no line is stored
};

/// The result so far of the running transfer.
struct Transfer {
  TransferKind Kind = TransferKind::Idle;
  /// The numbered lines of a catalogue as received, without characters 0, 2 and 3; at most
  /// `kMaxCatalogueLines`.
  std::vector<std::string> CatalogueLines;
  /// The value of the catalogue's ".DFV" line; "." without such a line.
  std::string CatalogueDfv = ".";
  /// Since `Collect`: the listing had a ".DFV" line.
  bool DfvSeen = false;

  std::size_t LinesDropped = 0;  // numbered lines beyond `kMaxCatalogueLines`
  bool ExitSeen = false;         // since `Collect`: the listing ended with "EXIT"
  bool ErrorSeen = false;        // since `Collect`: a line had "ERROR", or text was lost
  /// The last line of the controller that ended a read or a write as refused (it had "ERROR", or
  /// character 2 in a write); "" without one. A new connection clears it.
  std::string Refusal;
  /// Why the link failed since the attempt began; "" if it did not.
  std::string LinkFault;

  std::int16_t CatalogueLineCount() const {
    return static_cast<std::int16_t>(CatalogueLines.size());
  }

  /// Starts a transfer of the catalogue of a time control. "EXIT" and "ERROR" inside the control's
  /// name have no meaning.
  void Begin(TransferKind kind, std::string control);

  /// The same for a read: clears the catalogue and starts to collect its lines.
  void Collect(TransferKind kind, std::string control = {});

  /// Reads one reply line while a transfer runs. Every stored line resets
  /// `countdowns.ReplyCountdown` to `timeoutTicks`, and so does every line beyond the limit;
  /// "ERROR" in a read sets it to 0. Neither "EXIT" nor "ERROR" has a meaning in a numbered line
  /// with "!", which is content. A listing is stored without characters 0, 2 and 3. Another control
  /// character in a catalogue line means that the line was damaged; see `TakeDamage`.
  void TakeReplyLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);

  /// Ends the transfer if the first reply line to a command refuses it: "ERROR " in any case.
  /// `TakeReplyLine` has read the line already.
  void TakeFirstLine(std::string_view line);

  /// Reports that text was lost. A read is then incomplete, so the wait for it ends.
  void TakeDamage(Countdowns& countdowns);

 private:
  bool Says(std::string_view line, std::string_view word) const;
  void TakeUncleanLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);
  void TakeListingLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);

  std::string control_;
};

/// Returns the value of a ".DFV" line: the trimmed text after the first "=", up to a second "=" or
/// the first "!".
std::string DfvValue(std::string_view line);

}  // namespace zek
