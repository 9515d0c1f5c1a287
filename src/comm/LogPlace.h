#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "comm/ReplyLog.h"

namespace zek {

/// What a window shows of the log, and which lines are marked. Everything is kept by the lines'
/// numbers, so what is seen stays in its place while old lines leave the log.
///
/// As long as it follows the log, the newest line is shown and marked. Going back stops that, and
/// so does marking several lines; going to the end begins it again.
class LogPlace {
 public:
  using Line = std::uint64_t;

  explicit LogPlace(const ReplyLog& log) : log_(log) {}

  /// Takes over what has happened in the log. Other lines, those of a file, are followed.
  void Update();

  /// The number of whole lines that the window has room for, at least one.
  void SetPage(std::size_t lines);

  /// The user moves what is shown.
  void ScrollTo(std::int64_t top);
  void ScrollBy(std::int64_t lines) { ScrollTo(static_cast<std::int64_t>(top_) + lines); }

  /// The user goes to a line, which is then seen; with `extend` all lines from the last one that
  /// was gone to without it are marked.
  void GoTo(std::int64_t line, bool extend);
  void GoBy(std::int64_t lines, bool extend);
  /// Marks a line that is seen; what comes is still followed.
  void Click(Line line) { cursor_ = anchor_ = line; }
  /// Goes to a line that was found: it is not followed, even if it is the newest.
  void GoToFound(Line line);
  void ToEnd();
  void MarkAll();

  bool Follows() const { return follows_; }
  Line Top() const { return top_; }
  Line Cursor() const { return cursor_; }
  std::size_t Page() const { return page_; }
  /// The first marked line and the line after the last one; equal if none is left.
  std::pair<Line, Line> Marked() const;
  bool IsMarked(Line line) const { return line >= Marked().first && line < Marked().second; }
  bool MarksSeveral() const { return anchor_ != cursor_; }

 private:
  Line Within(std::int64_t line) const;
  Line LastTop() const;

  const ReplyLog& log_;
  std::size_t page_ = 1;
  bool follows_ = true;
  Line top_ = 0;
  Line cursor_ = 0;
  Line anchor_ = 0;  // the other end of the marked lines
  std::uint64_t replaced_ = 0;
};

}  // namespace zek
