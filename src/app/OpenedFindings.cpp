#include "app/OpenedFindings.h"

#include <algorithm>
#include <set>
#include <utility>

#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr std::size_t kEventsOfStep = 500;         // one or two milliseconds
constexpr std::size_t kStepsBeforeSending = 2000;  // some seconds at most

bool IsProved(FindingKind kind) {
  return kind == FindingKind::RowNoEffect || kind == FindingKind::ExceptionNoEffect ||
         kind == FindingKind::DateNoEffect;
}

void Finish(FindingSearch& search) {
  for (std::size_t step = 0; step < kStepsBeforeSending && search.Step(kEventsOfStep); ++step) {
  }
}

}  // namespace

OpenedFindings::OpenedFindings(const ZV_Proc& proc, Catalogue catalogue,
                               const CatalogueContent& content)
    : proc_(proc),
      catalogue_(catalogue),
      context_(ContextNow(proc)),
      names_(ReadSpecialDayNames(proc.profile, proc.selection.TopicName)) {
  const OpenCatalogue open{catalogue, content};
  read_ = ReadKnownTables(proc, proc.selection, &open);
  edited_ = read_;
  if (catalogue != Catalogue::Sdc) return;
  for (std::size_t node = 0; node < proc.tree.size(); ++node) {
    const TreeNode& each = proc.tree[node];
    if (each.IsTimeControl() && each.Object == proc.selection.CurrentObject)
      controls_.push_back(ReadKnownTables(proc, SelectionOf(proc.tree, proc.topics, node), &open));
  }
}

FindingSearch OpenedFindings::SearchOf(const KnownTables& known) const {
  if (catalogue_ != Catalogue::Sdc) return SearchControl(catalogue_, known, true, context_);
  std::vector<Schedule> controls;
  for (const KnownTables& control : controls_) {
    controls.push_back(control.tables.schedule);
    controls.back().calendar = known.tables.schedule.calendar;
  }
  if (!std::all_of(controls_.begin(), controls_.end(), [](const auto& each) { return each.All(); }))
    controls.clear();
  FindingSearch search = SearchCalendar(known, std::move(controls), context_);
  search.Add(WithoutRows(known.tables.schedule.calendar));
  return search;
}

// The special days without rows of all controls that share a calendar.
std::vector<Finding> OpenedFindings::WithoutRows(const std::vector<DatedType>& calendar) const {
  std::vector<Finding> findings;
  for (const KnownTables& control : controls_) {
    ControlTables tables = control.tables;
    tables.schedule.calendar = calendar;
    for (Finding& each : TypesWithoutRows(tables, context_)) {
      if (controls_.size() > 1) {
        each.words[0] =
            WithNameOfDay(each.words[0], proc_.texts, names_) + " (" + tables.owner.name + ")";
      }
      findings.push_back(std::move(each));
    }
  }
  return findings;
}

void OpenedFindings::Search(const EditedTable& table, std::vector<Finding> entered) {
  if (begun_ && table == table_ && entered == entered_) return;
  begun_ = true;
  table_ = table;
  entered_ = std::move(entered);
  edited_.Put(table);
  search_ = SearchOf(edited_);
  search_.Add(entered_);
}

bool OpenedFindings::Step() { return search_.Step(kEventsOfStep); }

FindingView OpenedFindings::ViewOf(const KnownTables& known) const {
  return {known.tables.schedule, catalogue_, proc_.texts, names_};
}

std::vector<ShownFinding> OpenedFindings::Shown(std::size_t from) const {
  std::vector<ShownFinding> shown;
  for (std::size_t at = from; at < search_.Found().size(); ++at)
    shown.push_back(ViewOf(edited_).Show(search_.Found()[at]));
  return shown;
}

std::string OpenedFindings::Missing() const {
  const auto known = [](const KnownTables& each) { return each.All(); };
  if (catalogue_ == Catalogue::Sdc) {
    const bool all = std::all_of(controls_.begin(), controls_.end(), known);
    return all ? "" : Message(proc_.Text(text::kFindingsNeedAll), {proc_.selection.TopicName});
  }
  return edited_.tables.known.NotJudged(proc_.texts);
}

std::vector<std::string> OpenedFindings::NewOnes() {
  Finish(search_);
  FindingSearch before = SearchOf(read_);
  Finish(before);
  std::set<std::string> had;
  for (const Finding& finding : before.Found()) {
    for (std::string& cell : ViewOf(read_).CellsOf(finding)) had.insert(std::move(cell));
  }
  std::vector<std::string> newOnes;
  for (const Finding& finding : search_.Found()) {
    const std::vector<std::string> cells = ViewOf(edited_).CellsOf(finding);
    const bool old = std::all_of(cells.begin(), cells.end(),
                                 [&had](const auto& cell) { return had.contains(cell); });
    const bool unknown = !before.Complete() && IsProved(finding.kind);
    // A note tells of start values.
    if (old || unknown || finding.kind == FindingKind::StartNotEntered) continue;
    const ShownFinding shown = ViewOf(edited_).Show(finding);
    newOnes.push_back(shown.place + ": " + shown.text);
  }
  return newOnes;
}

}  // namespace zek
