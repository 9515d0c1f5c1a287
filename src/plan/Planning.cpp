#include "plan/Planning.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>

#include "catalogue/CatalogueSend.h"
#include "catalogue/LineChanges.h"
#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"
#include "plan/PlanPrompts.h"
#include "plan/PlanTarget.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

// Special days get their rows before dates become such days.
constexpr std::array kOrder = {Catalogue::Wdc, Catalogue::Sdc, Catalogue::Ovc};

PlanLine LineOf(PlanWord word, const PlannedCatalogue& planned) {
  return {word, planned.Node(), KindText(planned.kind), 0, 0, "", ""};
}

}  // namespace

Plan Planner::Make(std::span<const ListedChange> changes, const std::vector<std::string>& nodes) {
  std::set<Catalogue> kinds;
  for (const ListedChange& change : changes) kinds.insert(KindOf(change));
  std::vector<PlannedCatalogue> all;
  for (const auto& [object, controls] : ControlsOf(nodes)) {
    for (const Catalogue kind : kOrder) {
      if (kinds.contains(kind))
        std::ranges::move(CataloguesOf(object, controls, kind), std::back_inserter(all));
    }
  }
  total_ += all.size();
  for (PlannedCatalogue& each : all)
    if (!Stopped()) PlanChange(std::move(each), changes);
  return std::move(plan_);
}

Plan Planner::Revert(const Plan& plan, const StartedNote& started) {
  total_ = plan.catalogues.size();
  for (const PlannedCatalogue& each : plan.catalogues)
    if (!Stopped()) PlanBack(each, started);
  return std::move(plan_);
}

Planner::Controls Planner::ControlsOf(const Lines& nodes) {
  std::map<std::int16_t, std::set<std::size_t>> found;
  for (const std::string& name : nodes) {
    const auto node = FindNode(proc_.tree, proc_.topics, name);
    if (!node) {
      ++total_;
      report_({PlanWord::Refused, name, "", 0, 0, "", proc_.Text(text::kPlanNoNode)});
      continue;
    }
    std::set<std::size_t>& controls = found[proc_.tree[*node].Object];
    if (proc_.tree[*node].IsTimeControl()) controls.insert(*node);
    for (std::size_t child = 0; child < proc_.tree.size(); ++child)
      if (proc_.tree[child].Parent == node) controls.insert(child);
  }
  Controls all;
  for (const auto& [object, controls] : found) all[object] = {controls.begin(), controls.end()};
  return all;
}

std::vector<PlannedCatalogue> Planner::CataloguesOf(std::int16_t object,
                                                    const std::vector<std::size_t>& nodes,
                                                    Catalogue kind) {
  PlannedCatalogue planned;
  planned.kind = kind;
  SetController(planned, proc_, object);
  const bool calendar = kind == Catalogue::Sdc;
  if (calendar) {
    const std::string name = nodes.empty() ? "" : proc_.tree[nodes.front()].TscName;
    planned.controls.push_back({name, {}, {}});
  }
  for (const std::size_t node : nodes)
    if (!calendar) planned.controls.push_back({proc_.tree[node].TscName, {}, {}});
  if (calendar || planned.IsShared() || planned.controls.empty()) return {planned};
  std::vector<PlannedCatalogue> each(planned.controls.size(), planned);
  for (std::size_t i = 0; i < each.size(); ++i) each[i].controls = {planned.controls[i]};
  return each;
}

void Planner::Refuse(const PlannedCatalogue& planned, const std::string& why) {
  PlanLine line = LineOf(PlanWord::Refused, planned);
  line.why = why;
  report_(line);
}

// Fetches a catalogue, or reports why it can't be planned. A controller that does not answer is
// asked only once.
std::optional<CatalogueContent> Planner::Fetch(const PlannedCatalogue& planned,
                                               const CatalogueId& id) {
  std::string& silent = silent_[planned.topic];
  std::optional<CatalogueContent> now;
  if (silent.empty()) {
    PlanPrompts prompts(planned.topic);
    const PromptsInstead instead(proc_.prompts, prompts);
    now = proc_.catalogues.Look(id);
    if (!now) silent = prompts.Trouble().empty() ? proc_.Text(text::kNoAnswer) : prompts.Trouble();
  }
  if (!now) {
    Refuse(planned, silent);
  } else if (now->linesDropped > 0) {
    Refuse(planned, proc_.ToUser().Text(text::kPlanCut, {std::to_string(kMaxCatalogueLines)}));
    return std::nullopt;
  }
  return now;
}

// Returns why the changes don't fit.
std::string Planner::ChangeEach(PlannedCatalogue& planned, const CatalogueId& id,
                                const Lines& listing, std::span<const ListedChange> changes) {
  const std::vector<CatalogueId> each = id.Each();
  for (std::size_t i = 0; i < each.size(); ++i) {
    ChangedLines changed = ChangeLines(proc_, each[i], listing, changes);
    if (!changed.refusal.empty())
      return planned.IsShared() ? each[i].control + ": " + changed.refusal : changed.refusal;
    planned.controls[i].was = std::move(changed.was);
    planned.controls[i].will = std::move(changed.will);
  }
  return {};
}

void Planner::PlanChange(PlannedCatalogue planned, std::span<const ListedChange> changes) {
  if (planned.controls.empty()) return Refuse(planned, proc_.Text(text::kPlanNoControl));
  const PlanTarget target = TargetOf(proc_, planned);
  if (!target.refusal.empty()) return Refuse(planned, target.refusal);
  const auto now = Fetch(planned, target.id);
  if (!now) return;
  const std::string why = ChangeEach(planned, target.id, now->lines, changes);
  if (!why.empty()) return Refuse(planned, why);
  Keep(std::move(planned), target.id, *now);
}

void Planner::PlanBack(const PlannedCatalogue& done, const StartedNote& started) {
  const PlanTarget target = TargetOf(proc_, done);
  if (!target.refusal.empty()) return Refuse(done, target.refusal);
  const auto now = Fetch(done, target.id);
  if (!now) return;
  const PlanComparison found = Compare(proc_, target.id, done, now->lines);
  const bool interrupted = found.state == PlanState::Between && started.Before(done) != nullptr;
  if (found.state >= PlanState::Between && !interrupted)
    return Refuse(done, proc_.ToUser().Text(text::kPlanStale, {found.differences}));
  PlannedCatalogue back = done;
  back.linesToSend = 0;
  const std::string why = ChangeEach(back, target.id, now->lines, {});
  if (!why.empty()) return Refuse(done, why);
  for (std::size_t i = 0; i < back.controls.size(); ++i)
    back.controls[i].will = done.controls[i].was;
  Keep(std::move(back), target.id, *now);
}

// Keeps the controls that change. Their lines and those of all others must fit the catalogue.
void Planner::Keep(PlannedCatalogue planned, const CatalogueId& id, const CatalogueContent& now) {
  PlanLine line = LineOf(PlanWord::Change, planned);
  if (WillLackValue(id, now)) line.why = proc_.Text(text::kValueWillBeNone);
  std::vector<PlannedControl> changing;
  const std::vector<CatalogueId> each = id.Each();
  CatalogueId group = id;
  group.group.clear();
  for (std::size_t i = 0; i < each.size(); ++i) {
    PlannedControl& control = planned.controls[i];
    const EntrySet was = EntriesIn(proc_, each[i], control.was);
    const EntrySet will = EntriesIn(proc_, each[i], control.will);
    if (was == will) continue;
    line.added += Without(will, was).size();
    line.removed += Without(was, will).size();
    planned.linesToSend += control.will.size();
    group.group.push_back(control.name);
    if (planned.IsShared()) line.controls += (line.controls.empty() ? "" : ",") + control.name;
    changing.push_back(std::move(control));
  }
  if (changing.empty()) return report_(LineOf(PlanWord::Unchanged, planned));
  planned.controls = std::move(changing);
  if (planned.IsShared()) {
    const Lines others = SplitLines(group, now.lines).others;
    const bool exceptions = planned.kind == Catalogue::Ovc;
    const std::size_t kept = exceptions ? WithoutStarred(others).size() : others.size();
    if (kept + planned.linesToSend > kMaxCatalogueLines) {
      return Refuse(
          planned, proc_.ToUser().Text(text::kSharedTooLong, {std::to_string(kMaxCatalogueLines)}));
    }
    if (exceptions || ReadYesNo(proc_.profile, kSaveOptions, kWriteWhole, "no"))
      planned.linesToSend += kept;
  }
  report_(line);
  plan_.catalogues.push_back(std::move(planned));
}

}  // namespace zek
