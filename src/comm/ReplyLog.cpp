#include "comm/ReplyLog.h"

#include <algorithm>

#include "text/Controls.h"

namespace zek {
void ReplyLog::Add(std::string_view line) {
  AddLine(line);
  if (Echo) Echo(Lines().back());
}

void ReplyLog::AddSent(std::string_view command) {
  AddLine(std::string(kSentMark).append(command));
}

void ReplyLog::AddLine(std::string_view line) {
  if (lines_.size() < kLines) {
    lines_.emplace_back(line);
  } else {
    lines_[first_] = line;
    if (++first_ == lines_.size()) first_ = 0;
  }
  ++added_;
  ++raw_;
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
  ++replaced_;
}

}  // namespace zek
