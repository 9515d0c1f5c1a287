#include "findings/FindingSearch.h"

#include <utility>

#include "findings/FindingList.h"

namespace zek {
namespace {

std::string_view TableOf(FindingKind kind) {
  if (kind == FindingKind::RowNoEffect) return "wdc";
  return kind == FindingKind::ExceptionNoEffect ? "ovc" : "sdc";
}

}  // namespace

FindingSearch::FindingSearch(std::vector<Finding> found, std::vector<Doubt> doubts,
                             std::vector<Schedule> schedules, DayNumber today)
    : found_(std::move(found)),
      doubts_(std::move(doubts)),
      schedules_(std::move(schedules)),
      today_(today) {}

bool FindingSearch::Step(std::size_t events) {
  if (Complete()) return false;
  const Doubt& doubt = doubts_[doubt_];
  if (schedule_ == schedules_.size()) {
    found_.push_back({doubt.kind, PlaceOf(TableOf(doubt.kind), doubt.line), {}});
    NextDoubt();
    return !Complete();
  }
  const Schedule& schedule = schedules_[schedule_];
  if (!comparison_) comparison_.emplace(schedule, Without(schedule, doubt), today_);
  const std::optional<bool> effect = comparison_->Step(events);
  if (!effect) return true;
  comparison_.reset();
  if (*effect) {
    NextDoubt();
  } else {
    ++schedule_;
  }
  return !Complete();
}

void FindingSearch::NextDoubt() {
  ++doubt_;
  schedule_ = 0;
}

}  // namespace zek
