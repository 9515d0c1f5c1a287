#include "comm/LogSearch.h"

#include <algorithm>

#include "comm/LogText.h"
#include "text/Fields.h"

namespace zek {

void LogSearch::Seek(std::string_view what, bool times) {
  what_ = UpperCase(what);
  times_ = times;
  hits_.clear();
  seen_ = 0;
  current_.reset();
  Update();
}

void LogSearch::Update() {
  const std::uint64_t first = log_.First();
  while (!hits_.empty() && hits_.front() < first) hits_.pop_front();
  if (!Active()) return;
  const auto& lines = log_.Lines();
  for (seen_ = std::max(seen_, first); seen_ < log_.End(); ++seen_) {
    const bool hit = times_ ? FindNoCase(LogLine(log_, seen_, true), what_) != std::string::npos
                            : FindNoCase(lines[static_cast<std::size_t>(seen_ - first)], what_) !=
                                  std::string::npos;
    if (hit) hits_.push_back(seen_);
  }
}

std::optional<std::uint64_t> LogSearch::Go(const Hits::const_iterator& to) {
  if (hits_.empty()) return std::nullopt;
  current_ = to == hits_.end() ? hits_.front() : *to;
  return current_;
}

std::optional<std::uint64_t> LogSearch::Nearest(std::uint64_t line) {
  const auto after = std::upper_bound(hits_.begin(), hits_.end(), line);
  return Go(after == hits_.begin() ? after : after - 1);
}

std::optional<std::uint64_t> LogSearch::Next() {
  return Go(std::upper_bound(hits_.begin(), hits_.end(), current_.value_or(0)));
}

std::optional<std::uint64_t> LogSearch::Previous() {
  const auto here = std::lower_bound(hits_.begin(), hits_.end(), current_.value_or(0));
  return Go((here == hits_.begin() ? hits_.end() : here) - (hits_.empty() ? 0 : 1));
}

std::size_t LogSearch::Place() const {
  if (!current_) return 0;
  const auto here = std::lower_bound(hits_.begin(), hits_.end(), *current_);
  const bool there = here != hits_.end() && *here == *current_;
  return there ? static_cast<std::size_t>(here - hits_.begin()) + 1 : 0;
}

}  // namespace zek
