#include "forecast/Masks.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <tuple>
#include <utility>

#include "forecast/SwitchCommands.h"

namespace zek {
namespace {

// True if `left` loses against `right` while both are active.
constexpr auto kLoses = [](const Mask& left, const Mask& right) {
  return std::tie(left.from, left.place) < std::tie(right.from, right.place);
};

constexpr auto kAfter = [](Moment moment, const Mask& mask) { return moment < mask.from; };

std::vector<Moment> BoundariesOf(const std::vector<Mask>& masks) {
  std::vector<Moment> boundaries;
  for (const Mask& mask : masks) boundaries.insert(boundaries.end(), {mask.from, mask.to});
  std::sort(boundaries.begin(), boundaries.end());
  boundaries.erase(std::unique(boundaries.begin(), boundaries.end()), boundaries.end());
  return boundaries;
}

// `active` is sorted by `kLoses`, so by its beginning.
std::vector<Mask> WithoutOverlaps(const std::vector<Mask>& active) {
  std::vector<Mask> masks;
  std::priority_queue<Mask, std::vector<Mask>, decltype(kLoses)> begun;
  auto next = active.begin();
  const std::vector<Moment> boundaries = BoundariesOf(active);
  for (std::size_t at = 0; at + 1 < boundaries.size(); ++at) {
    for (; next != active.end() && next->from <= boundaries[at]; ++next) begun.push(*next);
    while (!begun.empty() && begun.top().to <= boundaries[at]) begun.pop();
    if (begun.empty()) continue;
    const std::size_t place = begun.top().place;
    if (!masks.empty() && masks.back().place == place && masks.back().to == boundaries[at]) {
      masks.back().to = boundaries[at + 1];
    } else {
      masks.push_back({boundaries[at], boundaries[at + 1], place});
    }
  }
  return masks;
}

}  // namespace

Masks::Masks(std::vector<ExceptionLine> exceptions) : exceptions_(std::move(exceptions)) {
  for (std::size_t place = 0; place < exceptions_.size(); ++place) {
    const OvcRow& row = exceptions_[place].row;
    const std::optional<Moment> stop = StopOf(row);
    if (stop && row.valueOn != kNoValue) active_.push_back({row.start, *stop, place});
  }
  std::sort(active_.begin(), active_.end(), kLoses);
  masks_ = WithoutOverlaps(active_);
}

const Mask* Masks::BeginningAfter(Moment moment) const {
  const auto next = std::upper_bound(masks_.begin(), masks_.end(), moment, kAfter);
  return next == masks_.end() ? nullptr : &*next;
}

const Mask* Masks::At(Moment moment) const {
  const auto next = std::upper_bound(masks_.begin(), masks_.end(), moment, kAfter);
  return next == masks_.begin() || (next - 1)->to <= moment ? nullptr : &*(next - 1);
}

const Mask* Masks::EndedBefore(Moment moment) const {
  auto next = std::upper_bound(masks_.begin(), masks_.end(), moment, kAfter);
  if (next != masks_.begin() && (next - 1)->to > moment) --next;
  return next == masks_.begin() ? nullptr : &*(next - 1);
}

std::vector<ExceptionLine> Masks::ActiveAt(Moment moment) const {
  std::vector<ExceptionLine> found;
  for (const Mask& mask : active_) {
    if (mask.from <= moment && moment < mask.to) found.push_back(exceptions_[mask.place]);
  }
  std::reverse(found.begin(), found.end());
  return found;
}

}  // namespace zek
