#include "plan/Applying.h"

#include <utility>

#include "catalogue/LineChanges.h"
#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

PlanLine LineOf(PlanWord word, const PlannedCatalogue& planned, std::string why = {}) {
  return {word, planned.Node(), KindText(planned.kind), 0, 0, "", std::move(why)};
}

// A mixture of both is expected only where a write was begun. What is done already may be sent
// again for the lines of others.
bool MayChange(PlanState state, bool begun) {
  return state == PlanState::AsWas || (begun && state != PlanState::Other) ||
         state == PlanState::AsWill;
}

}  // namespace

void Applier::Run(const Plan& plan) {
  const bool maySend = !proc_.settings.LocalMode && !proc_.settings.ViewOnly;
  for (const PlannedCatalogue& each : plan.catalogues) {
    const bool untried = !maySend || IsStopped() || failed_.contains(each.topic);
    const PlanLine line = untried ? LineOf(PlanWord::Untried, each) : Apply(each);
    if (line.word == PlanWord::Failed) failed_.insert(each.topic);
    report_(line);
  }
}

PlanLine Applier::Apply(const PlannedCatalogue& planned) {
  const PlanTarget target = TargetOf(proc_, planned);
  if (!target.refusal.empty()) return LineOf(PlanWord::Refused, planned, target.refusal);
  PlanPrompts prompts(planned.topic);
  const PromptsInstead instead(proc_.prompts, prompts);
  return ApplyTo(planned, target.id, prompts);
}

PlanLine Applier::ApplyTo(const PlannedCatalogue& planned, const CatalogueId& id,
                          PlanPrompts& prompts) {
  const bool unsent = proc_.catalogues.HasUnsentChanges(id);
  const CatalogueContent copy = proc_.copies.Peek(id);
  const auto now = proc_.catalogues.Look(id);
  if (!now && IsStopped()) return LineOf(PlanWord::Untried, planned);
  if (!now) {
    const std::string& why = prompts.Trouble();
    return LineOf(PlanWord::Failed, planned, why.empty() ? proc_.Text(text::kNoAnswer) : why);
  }
  if (now->linesDropped > 0)
    return LineOf(PlanWord::Failed, planned,
                  proc_.ToUser().Text(text::kPlanCut, {std::to_string(kMaxCatalogueLines)}));
  proc_.records.RememberKnown(id, *now);
  const PlanComparison found = Compare(proc_, id, planned, now->lines);
  if (found.state == PlanState::AsWill && IsWhole(id, now->lines)) {
    KeepAsFetched(id, *now, unsent);
    static_cast<void>(started_.End(planned));  // else the next run finds it done again
    return LineOf(PlanWord::Already, planned);
  }
  const bool begun = started_.Before(planned) != nullptr;
  if (!MayChange(found.state, begun)) return Stale(planned, found.differences);
  PlanLine line = Send(planned, id, *now, begun && found.state != PlanState::AsWas, prompts);
  const auto add = [&line](const std::string& remark) {
    line.why += (line.why.empty() ? "" : " ") + remark;
  };
  // Also if the sending failed: the history alone has what was there.
  if (unsent && !HaveSameLines(copy, proc_.copies.Peek(id)))
    add(proc_.ToUser().Text(text::kUnsentReplaced, {line.node + " " + line.kind}));
  if (line.word == PlanWord::Done && WillLackValue(id, *now))
    add(proc_.Text(text::kValueWillBeNone));
  return line;
}

// An interrupted write may have cost other controls their lines.
bool Applier::IsWhole(const CatalogueId& id, const Lines& listing) const {
  const auto unfinished = proc_.records.Unfinished(id);
  if (!id.IsPartOfShared() || !unfinished) return true;
  return LostOthers(id, unfinished->content.lines, listing).empty();
}

void Applier::KeepAsFetched(const CatalogueId& id, const CatalogueContent& now, bool unsent) {
  if (id.IsPartOfShared()) proc_.records.EndWrite(id, now.lines);
  if (unsent || HaveSameLines(proc_.copies.Peek(id), now)) return;
  const auto value = id.IsOfControl() ? std::optional(now.dfv.value_or(".")) : now.dfv;
  static_cast<void>(proc_.copies.Store(id, now.lines, value));
}

PlanLine Applier::Send(const PlannedCatalogue& planned, const CatalogueId& id,
                       const CatalogueContent& now, bool interrupted, PlanPrompts& prompts) {
  const Lines before = interrupted ? *started_.Before(planned) : SplitLines(id, now.lines).own;
  CatalogueDraft draft;
  for (const PlannedControl& control : planned.controls)
    draft.lines = Joined(std::move(draft.lines), control.will);
  auto numbered = NumberedLike(proc_, id, draft.lines, before);
  if (!numbered) return LineOf(PlanWord::Failed, planned, prompts.Trouble());
  if (const auto error = started_.Begin(planned, before))
    return LineOf(PlanWord::Failed, planned, FileMessage(proc_.texts, *error));
  draft.lines = *std::move(numbered);
  draft.dfv = now.dfv;
  draft.numberLike = interrupted ? before : Lines();
  std::optional<std::string> stale;
  draft.mayChange = [&](const CatalogueContent& latest) {
    const PlanComparison found = Compare(proc_, id, planned, latest.lines);
    if (!MayChange(found.state, interrupted)) stale = found.differences;
    return !stale;
  };
  const SaveResult saved = proc_.catalogues.SaveCatalogue(id, draft);
  // An earlier, interrupted write stays noted. Otherwise the controller is as it was, and what
  // somebody changes there from now on must not count as this plan's own work.
  if (!saved.begun && !interrupted) static_cast<void>(started_.End(planned));
  if (stale) return Stale(planned, *stale);
  if (!saved.begun && IsStopped()) return LineOf(PlanWord::Untried, planned);
  if (!saved.Done()) return LineOf(PlanWord::Failed, planned, prompts.Trouble());
  static_cast<void>(started_.End(planned));  // else the next run finds it done
  return LineOf(PlanWord::Done, planned, prompts.Trouble());
}

PlanLine Applier::Stale(const PlannedCatalogue& planned, const std::string& differences) const {
  return LineOf(PlanWord::Stale, planned, proc_.ToUser().Text(text::kPlanStale, {differences}));
}

}  // namespace zek
