#include "comm/LogPlace.h"

#include <algorithm>

namespace zek {

LogPlace::Line LogPlace::Within(std::int64_t line) const {
  const auto first = static_cast<std::int64_t>(log_.First());
  const auto last = static_cast<std::int64_t>(log_.End()) - 1;
  return static_cast<Line>(std::clamp(line, first, std::max(first, last)));
}

LogPlace::Line LogPlace::LastTop() const {
  return log_.End() - std::min<Line>(page_, log_.End() - log_.First());
}

void LogPlace::Update() {
  if (replaced_ != log_.Replaced()) {
    replaced_ = log_.Replaced();
    follows_ = true;
  }
  if (follows_) {
    ToEnd();
  } else {
    top_ = std::clamp(top_, log_.First(), LastTop());
  }
}

void LogPlace::SetPage(std::size_t lines) {
  page_ = std::max<std::size_t>(lines, 1);
  Update();
}

void LogPlace::ScrollTo(std::int64_t top) {
  top_ = std::min(Within(top), LastTop());
  if (top_ < LastTop()) {
    follows_ = false;
  } else if (!MarksSeveral()) {
    ToEnd();
  }
}

void LogPlace::GoTo(std::int64_t line, bool extend) {
  cursor_ = Within(line);
  if (!extend) anchor_ = cursor_;
  follows_ = !extend && cursor_ + 1 >= log_.End();
  const Line below = cursor_ + 1 - std::min<Line>(page_, cursor_ + 1);
  top_ = std::clamp(top_, std::min(below, cursor_), cursor_);
  top_ = std::clamp(top_, log_.First(), LastTop());
}

void LogPlace::GoBy(std::int64_t lines, bool extend) {
  GoTo(static_cast<std::int64_t>(Within(static_cast<std::int64_t>(cursor_))) + lines, extend);
}

void LogPlace::GoToFound(Line line) {
  const bool seen = line >= top_ && line < top_ + page_;
  GoTo(static_cast<std::int64_t>(line), false);
  follows_ = false;
  // With something around it.
  if (!seen) top_ = std::min(Within(static_cast<std::int64_t>(line - page_ / 2)), LastTop());
}

void LogPlace::ToEnd() {
  follows_ = true;
  top_ = LastTop();
  cursor_ = anchor_ = Within(static_cast<std::int64_t>(log_.End()));
}

void LogPlace::MarkAll() {
  follows_ = false;
  anchor_ = log_.First();
  cursor_ = Within(static_cast<std::int64_t>(log_.End()));
}

std::pair<LogPlace::Line, LogPlace::Line> LogPlace::Marked() const {
  const Line first = std::max(std::min(anchor_, cursor_), log_.First());
  const Line end = std::min(std::max(anchor_, cursor_) + 1, log_.End());
  return {first, std::max(first, end)};
}

}  // namespace zek
