#pragma once

#include <functional>
#include <set>
#include <string>

#include "app/ZV_Proc.h"
#include "plan/Plan.h"
#include "plan/PlanPrompts.h"
#include "plan/PlanTarget.h"
#include "plan/StartedNote.h"

namespace zek {

/// Applies a plan: sends each catalogue whose planned controls still have the entries that were
/// planned against, by the rules of every save. It can end at any moment and run again: what is
/// done gets no command that writes, and what was interrupted is sent again.
class Applier {
 public:
  using Report = std::function<void(const PlanLine&)>;

  /// `report` gets a line for each catalogue when it has ended.
  Applier(ZV_Proc& proc, StartedNote& started, Report report)
      : proc_(proc), started_(started), report_(std::move(report)) {}

  void Run(const Plan& plan);

  /// What is not yet begun stays untried. The present transfer is cancelled like any other.
  void Cancel() { cancelled_ = true; }

 private:
  bool IsStopped() const { return cancelled_ || proc_.turn.Quitting(); }
  PlanLine Apply(const PlannedCatalogue& planned);
  PlanLine ApplyTo(const PlannedCatalogue& planned, const CatalogueId& id, PlanPrompts& prompts);
  PlanLine Send(const PlannedCatalogue& planned, const CatalogueId& id, const CatalogueContent& now,
                bool interrupted, PlanPrompts& prompts);
  bool IsWhole(const CatalogueId& id, const std::vector<std::string>& listing) const;
  void KeepAsFetched(const CatalogueId& id, const CatalogueContent& now, bool unsent);
  PlanLine Stale(const PlannedCatalogue& planned, const std::string& differences) const;

  ZV_Proc& proc_;
  StartedNote& started_;
  Report report_;
  std::set<std::string> failed_;  // topics; their other catalogues stay untried
  bool cancelled_ = false;
};

}  // namespace zek
