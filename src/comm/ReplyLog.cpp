#include "comm/ReplyLog.h"

#include <algorithm>

#include "text/Controls.h"

namespace zek {
void ReplyLog::AddReply(std::string_view line) {
  AddLine(line);
  if (Echo) Echo(Lines().back());
}

void ReplyLog::AddSent(std::string_view command) {
  SetTime(Now());
  AddLine(std::string(kSentMark).append(command));
}

void ReplyLog::AddLine(std::string_view line) {
  if (lines_.size() < kLines) {
    lines_.emplace_back(line);
  } else {
    lines_[first_] = line;
    if (++first_ == lines_.size()) first_ = 0;
  }
  ++end_;
  ++added_;
  ++raw_;
  if (Record) Record(line, times_.empty() ? LocalTime() : times_.back().since);
}

// Drops the times of lines that have left the log.
void ReplyLog::SetTime(const LocalTime& since) {
  if (!times_.empty() && times_.back().since == since) return;
  const auto left = std::find_if(times_.rbegin(), times_.rend(),
                                 [this](const Times& each) { return each.from <= First(); });
  if (left != times_.rend()) times_.erase(times_.begin(), left.base() - 1);
  times_.push_back({end_, since});
}

LocalTime ReplyLog::Since(std::uint64_t number) const {
  const auto after =
      std::upper_bound(times_.begin(), times_.end(), number,
                       [](std::uint64_t line, const Times& each) { return line < each.from; });
  return after == times_.begin() ? LocalTime() : (after - 1)->since;
}

const std::vector<std::string>& ReplyLog::Lines() const {
  std::rotate(lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(first_), lines_.end());
  first_ = 0;
  std::for_each(lines_.end() - static_cast<std::ptrdiff_t>(std::min(raw_, lines_.size())),
                lines_.end(), ShowControls);
  raw_ = 0;
  return lines_;
}

void ReplyLog::Replace(std::vector<std::string> lines) {
  lines_ = std::move(lines);
  first_ = 0;
  raw_ = 0;
  times_.assign(1, {end_, {}});
  end_ += lines_.size();
  ++replaced_;
}

}  // namespace zek
