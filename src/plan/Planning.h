#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "plan/ChangeList.h"
#include "plan/ChangedLines.h"
#include "plan/Plan.h"
#include "plan/StartedNote.h"

namespace zek {

/// Makes plans: fetches each catalogue anew and works out what a change makes of it. Local copies
/// and records stay as they are, and nothing is sent. Stops when the program is to end.
class Planner {
 public:
  using Report = std::function<void(const PlanLine&)>;

  /// `report` gets a line for each catalogue as soon as it is known.
  Planner(ZV_Proc& proc, Report report) : proc_(proc), report_(std::move(report)) {}

  /// The number of catalogues that are looked at, from the first report on.
  std::size_t Total() const { return total_; }

  /// The catalogues that are left are not looked at. The present fetch is cancelled like any other.
  void Cancel() { cancelled_ = true; }

  /// Plans changes of nodes "TOPIC" (all its controls) or "TOPIC/TSC". A catalogue that controls
  /// share is planned once, and refused as a whole if the change does not fit one of them.
  Plan Make(std::span<const ListedChange> changes, const std::vector<std::string>& nodes);

  /// Plans the way back of a plan that was applied, also of one whose applying was interrupted.
  /// A catalogue that was changed since is refused.
  Plan Revert(const Plan& plan, const StartedNote& started);

 private:
  using Controls = std::map<std::int16_t, std::vector<std::size_t>>;  // nodes by object

  Controls ControlsOf(const std::vector<std::string>& nodes);
  std::vector<PlannedCatalogue> CataloguesOf(std::int16_t object,
                                             const std::vector<std::size_t>& nodes, Catalogue kind);
  bool Stopped() const { return cancelled_ || proc_.turn.Quitting(); }
  void PlanChange(PlannedCatalogue planned, std::span<const ListedChange> changes);
  void PlanBack(const PlannedCatalogue& done, const StartedNote& started);
  std::optional<CatalogueContent> Fetch(const PlannedCatalogue& planned, const CatalogueId& id);
  std::string ChangeEach(PlannedCatalogue& planned, const CatalogueId& id,
                         const std::vector<std::string>& listing,
                         std::span<const ListedChange> changes);
  void Keep(PlannedCatalogue planned, const CatalogueId& id, const CatalogueContent& now);
  void Refuse(const PlannedCatalogue& planned, const std::string& why);

  ZV_Proc& proc_;
  Report report_;
  Plan plan_;
  std::size_t total_ = 0;
  bool cancelled_ = false;
  std::map<std::string, std::string> silent_;  // topics that can't be reached: why
};

}  // namespace zek
