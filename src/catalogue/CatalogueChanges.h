#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueEntries.h"

namespace zek {

/// What becomes of an entry of a catalogue when another one takes its place.
enum class ChangeKind {
  Changed,
  Added,
  Removed,  // no longer in what is sent
  Dropped,  // the table or the lines have no place for it, see `DropReason`
};

/// Why something is dropped, or what else is to be known of its removal.
enum class DropReason {
  None,
  Starred,
  TooManyExceptions,
  PltStopValue,
  StopTime,  // of a ZEK1 exception without a stop date
  Unreadable,
  OtherControl,  // leaves the local copy; nothing is sent about it
  Overwritten,   // another control's line whose number is used for one of this one's
  MayStay,       // removed, but a controller may keep a line whose number is not sent again
};

struct CatalogueChange {
  ChangeKind kind = ChangeKind::Changed;
  std::string before;  // as `EntryText`; "" for what is added
  std::string after;   // "" for what is removed or dropped whole
  DropReason reason = DropReason::None;

  bool operator==(const CatalogueChange&) const = default;
};

/// What is different in `after` by its meaning: each kind in the order of days and times, equal
/// changes of consecutive days together. What has moved to another time within its day and line is
/// changed, not removed and added. Without a value in `after` none is sent, and it stays.
std::vector<CatalogueChange> ChangesBetween(const CatalogueContent& before,
                                            const CatalogueContent& after,
                                            const CatalogueRules& rules);

/// What a controller does not have as it was sent: removed is what it lacks, added what it should
/// no longer have. What it says twice and other controls' lines are no fault.
std::vector<CatalogueChange> FaultsOf(const CatalogueContent& sent, const CatalogueContent& fetched,
                                      const CatalogueRules& rules);

}  // namespace zek
