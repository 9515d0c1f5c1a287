#include "comm/ReplyLog.h"

#include <algorithm>

#include "text/Controls.h"

namespace zek {
void ReplyLog::Add(std::string_view line, const LocalTime& since) {
  AddLine(line, since);
  if (Echo) Echo(Lines().back());
}

void ReplyLog::AddSent(std::string_view command) {
  AddLine(std::string(kSentMark).append(command), Now());
}

void ReplyLog::AddLine(std::string_view line, const LocalTime& since) {
  if (lines_.size() < kLines) {
    lines_.emplace_back(line);
    times_.push_back(since);
  } else {
    lines_[first_] = line;
    times_[first_] = since;
    if (++first_ == lines_.size()) first_ = 0;
  }
  ++end_;
  ++added_;
  ++raw_;
  if (Record) Record(line, since);
}

const std::vector<std::string>& ReplyLog::Lines() const {
  const auto oldest = static_cast<std::ptrdiff_t>(first_);
  std::rotate(lines_.begin(), lines_.begin() + oldest, lines_.end());
  std::rotate(times_.begin(), times_.begin() + oldest, times_.end());
  first_ = 0;
  std::for_each(lines_.end() - static_cast<std::ptrdiff_t>(std::min(raw_, lines_.size())),
                lines_.end(), ShowControls);
  raw_ = 0;
  return lines_;
}

void ReplyLog::Replace(std::vector<std::string> lines) {
  lines_ = std::move(lines);
  times_.assign(lines_.size(), {});
  first_ = 0;
  raw_ = 0;
  end_ += lines_.size();
  ++replaced_;
}

}  // namespace zek
