#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"
#include "plan/ChangedLines.h"
#include "plan/Plan.h"

namespace zek {

/// A planned catalogue's place in the present tree, or the reason why it is refused.
struct PlanTarget {
  CatalogueId id;  // of all planned controls
  std::string refusal;
};

/// Refuses a catalogue whose controller has another address or type than the plan says, or whose
/// controls are not there.
PlanTarget TargetOf(ZV_Proc& proc, const PlannedCatalogue& planned);

/// Fills in the controller of a planned catalogue.
void SetController(PlannedCatalogue& planned, const ZV_Proc& proc, std::int16_t object);

/// True if sending the catalogue sets its value to none: none was read (".DFV" of a ZEK2).
inline bool WillLackValue(const CatalogueId& id, const CatalogueContent& now) {
  return id.IsOfControl() && id.catalogue == Catalogue::Wdc && !now.dfv;
}

/// How the entries of the planned controls are, compared with the plan.
enum class PlanState {
  AsWas,    // from before the change
  AsWill,   // from after it
  Between,  // each entry is one from before or after: a write may have been interrupted
  Other,
};

/// `differences` are the entries that the plan does not expect ("+ ") or misses ("- ").
struct PlanComparison {
  PlanState state = PlanState::AsWas;
  std::string differences;
};
PlanComparison Compare(const ZV_Proc& proc, const CatalogueId& id, const PlannedCatalogue& planned,
                       const std::vector<std::string>& listing);

}  // namespace zek
