#include "app/PlantFindings.h"

#include <algorithm>
#include <utility>

namespace zek {
namespace {

constexpr std::size_t kEventsOfStep = 500;  // one or two milliseconds

}  // namespace

PlantFindings::PlantFindings(const ZV_Proc& proc) : proc_(proc), context_(ContextNow(proc)) {
  const ObjectTree& tree = proc.tree;
  for (std::size_t node = 0; node < tree.size(); ++node) {
    if (!tree[node].IsTimeControl()) continue;
    ++all_;
    jobs_.push_back({node, Catalogue::Wdc});
    jobs_.push_back({node, Catalogue::Ovc});
    const bool last = node + 1 == tree.size() || tree[node + 1].Parent != tree[node].Parent;
    if (last) jobs_.push_back({*tree[node].Parent, Catalogue::Sdc});
  }
}

bool PlantFindings::Step() {
  if (!search_.Complete()) {
    search_.Step(kEventsOfStep);
  } else if (next_ < jobs_.size()) {
    Begin(jobs_[next_++]);
  }
  Take();
  return !search_.Complete() || next_ < jobs_.size();
}

void PlantFindings::Stop() {
  next_ = jobs_.size();
  search_ = {};
  taken_ = 0;
}

void PlantFindings::ReadControl(std::size_t node) {
  const Selection selection = SelectionOf(proc_.tree, proc_.topics, node);
  controls_.push_back(ReadKnownTables(proc_, selection));
  names_ = ReadSpecialDayNames(proc_.profile, selection.TopicName);
  ++judged_;
  withoutCopies_ += controls_.back().All() ? 0 : 1;
}

// The lines that controls share are searched with the first of them.
void PlantFindings::Begin(const Job& job) {
  taken_ = 0;
  search_ = {};
  if (job.catalogue == Catalogue::Sdc) {
    std::vector<Schedule> schedules;
    for (const KnownTables& control : controls_) schedules.push_back(control.tables.schedule);
    if (!std::all_of(controls_.begin(), controls_.end(), [](auto& each) { return each.All(); }))
      schedules.clear();
    if (controls_.front().tables.known.calendar)
      search_ = SearchCalendar(controls_.front(), std::move(schedules), context_);
    return;
  }
  if (job.catalogue == Catalogue::Wdc) {
    if (next_ > 1 && jobs_[next_ - 2].catalogue == Catalogue::Sdc) controls_.clear();
    ReadControl(job.node);
  }
  search_ = SearchControl(job.catalogue, controls_.back(), controls_.size() == 1, context_);
}

void PlantFindings::Take() {
  if (taken_ == search_.Found().size()) return;
  const Job& job = jobs_[next_ - 1];
  const KnownTables& control =
      job.catalogue == Catalogue::Sdc ? controls_.front() : controls_.back();
  const FindingView view{control.tables.schedule, job.catalogue, proc_.texts, names_};
  for (; taken_ < search_.Found().size(); ++taken_)
    found_.push_back({job.node, view.Show(search_.Found()[taken_])});
}

}  // namespace zek
