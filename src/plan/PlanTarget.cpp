#include "plan/PlanTarget.h"

#include <algorithm>

#include "catalogue/Selection.h"
#include "lang/TextNumbers.h"
#include "text/Lines.h"

namespace zek {
namespace {

void AddDifferences(std::string& text, std::string_view sign, const EntrySet& entries) {
  for (const std::string& entry : entries)
    text.append(text.empty() ? "" : "; ").append(sign).append(entry);
}

bool IsEachIn(const EntrySet& some, const EntrySet& one, const EntrySet& other) {
  return std::all_of(some.begin(), some.end(), [&](const std::string& entry) {
    return one.contains(entry) || other.contains(entry);
  });
}

}  // namespace

PlanTarget TargetOf(ZV_Proc& proc, const PlannedCatalogue& planned) {
  const auto refused = [&proc](std::int32_t text) { return PlanTarget{{}, proc.Text(text)}; };
  const std::int16_t object = proc.topics.Find(planned.topic);
  if (object < 0) return refused(text::kPlanNoNode);
  PlannedCatalogue present;
  SetController(present, proc, object);
  if (present.type != planned.type || present.address != planned.address ||
      present.tag != planned.tag) {
    return refused(text::kPlanOtherTopic);
  }
  PlanTarget target;
  for (const PlannedControl& control : planned.controls) {
    const std::string slash = control.name.empty() ? "" : "/";
    const auto node = FindNode(proc.tree, proc.topics, planned.topic + slash + control.name);
    if (!node) return refused(text::kPlanNoNode);
    target.id = SelectionOf(proc.tree, proc.topics, *node).Id(planned.kind);
    if (target.id.localFile.empty()) return refused(text::kNoSuchCatalogue);
  }
  if (!planned.IsShared()) return target;
  target.id.control.clear();
  for (const PlannedControl& control : planned.controls) target.id.group.push_back(control.name);
  return target;
}

void SetController(PlannedCatalogue& planned, const ZV_Proc& proc, std::int16_t object) {
  const Topic& topic = proc.topics[object];
  planned.topic = topic.TopicName;
  planned.type = topic.TopicType;
  planned.address = topic.Address;
  planned.tag = topic.Tag;
}

PlanComparison Compare(const ZV_Proc& proc, const CatalogueId& id, const PlannedCatalogue& planned,
                       const std::vector<std::string>& listing) {
  bool allWas = true;
  bool allWill = true;
  bool between = true;
  PlanComparison result;
  const std::vector<CatalogueId> each = id.Each();
  for (std::size_t i = 0; i < each.size(); ++i) {
    const EntrySet now = EntriesIn(proc, each[i], listing);
    const EntrySet was = EntriesIn(proc, each[i], planned.controls[i].was);
    const EntrySet will = EntriesIn(proc, each[i], planned.controls[i].will);
    allWill = allWill && now == will;
    allWas = allWas && now == was;
    between = between && IsEachIn(now, was, will);
    AddDifferences(result.differences, "+ ", Without(now, was));
    AddDifferences(result.differences, "- ", Without(was, now));
  }
  result.differences = Shortened(result.differences, kLongestWhy);
  if (allWas) {
    result.state = PlanState::AsWas;
  } else if (allWill) {
    result.state = PlanState::AsWill;
  } else {
    result.state = between ? PlanState::Between : PlanState::Other;
  }
  return result;
}

}  // namespace zek
