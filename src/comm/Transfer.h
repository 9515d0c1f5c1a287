#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "comm/Countdowns.h"
#include "formats/CatalogueLimits.h"

namespace zek {

/// What the reply handler is doing; the values are those of the catalogue kinds.
enum class TransferKind : std::int16_t {
  Idle = 0,
  ReadSdc = 1,
  ReadWdc = 2,
  WriteSdc = 3,
  WriteWdc = 4,
  ReadOvc = 5,
  WriteOvc = 6,
  ReadWdcExceptions = 7,  // a weekday listing that has reached its ".EXC" part: no line is stored
};

/// What reply lines have brought of the transfer that is running.
struct Transfer {
  TransferKind Kind = TransferKind::Idle;  // `TransferKind`
  /// The numbered lines of a catalogue as received, without characters 0, 2 and 3; at most
  /// `kMaxCatalogueLines`.
  std::vector<std::string> CatalogueLines;
  /// The value of the catalogue's ".DFV" line; "." for none.
  std::string CatalogueDfv = ".";

  std::size_t LinesDropped = 0;  // numbered lines of the catalogue beyond the places there are
  bool ExitSeen = false;         // a listing has ended with "EXIT" since `Collect`
  bool ErrorSeen = false;  // since `Collect` "ERROR" has come, or text of the listing was lost

  std::int16_t CatalogueLineCount() const {
    return static_cast<std::int16_t>(CatalogueLines.size());
  }

  /// Empties the catalogue and starts to collect lines of a read.
  void Collect(TransferKind kind);

  /// Takes one reply line while a transfer is running. Every stored line loads
  /// `countdowns.ReplyCountdown` with `timeoutTicks` again; "ERROR" in a read sets it to 0. Of a
  /// listing characters 0, 2 and 3 are left out; another control character in one of its lines
  /// shows that the line was damaged on its way, as does `TakeDamage`.
  void TakeReplyLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);

  /// Text was lost on its way: a read then can't know what the controller has, and is not awaited.
  void TakeDamage(Countdowns& countdowns);

 private:
  void TakeUncleanLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);
  void TakeListingLine(std::string_view line, Countdowns& countdowns, std::int16_t timeoutTicks);
};

/// The value of a ".DFV" line: what stands behind the first "=", cut at a second "=" and at the
/// first "!", without blanks around it.
std::string DfvValue(std::string_view line);

}  // namespace zek
