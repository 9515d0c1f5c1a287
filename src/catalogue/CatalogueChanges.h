#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueEntries.h"

namespace zek {

/// How an entry of a catalogue changes when another catalogue replaces it.
enum class ChangeKind {
  Changed,
  Added,
  Removed,  // not in the catalogue that is sent
  Dropped,  // does not fit into the table or the lines, see `DropReason`
};

/// The reason why an entry is dropped or removed.
enum class DropReason {
  None,
  Starred,
  TooManyExceptions,
  PltStopValue,
  StopTime,  // of a ZEK1 exception without a stop date
  Unreadable,
  OtherControl,  // another control's line that saving leaves out, because it has a "*"
  Overwritten,   // another control's line whose number this control now uses
};

struct CatalogueChange {
  ChangeKind kind = ChangeKind::Changed;
  std::string before;  // as `EntryText`; "" for an added entry
  std::string after;   // "" for an entry that is removed or dropped completely
  DropReason reason = DropReason::None;

  bool operator==(const CatalogueChange&) const = default;
};

/// Returns the differences of `after` by meaning. Each kind is ordered by day and time, and equal
/// changes of consecutive days are combined. An entry that moved to another time within its day and
/// line is changed, not removed and added. If `after` has no value, no value is sent and the
/// controller keeps its own.
std::vector<CatalogueChange> ChangesBetween(const CatalogueContent& before,
                                            const CatalogueContent& after,
                                            const CatalogueRules& rules);

/// Returns how a controller's catalogue differs from the one that was sent: "removed" are missing
/// entries, "added" are entries that should be gone. Repeated entries and lines of other controls
/// are not faults.
std::vector<CatalogueChange> FaultsOf(const CatalogueContent& sent, const CatalogueContent& fetched,
                                      const CatalogueRules& rules);

}  // namespace zek
