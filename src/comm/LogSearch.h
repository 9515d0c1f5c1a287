#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "comm/ReplyLog.h"

namespace zek {

/// Searches the lines of the log, ignoring case, while lines come and go. A hit is a line that has
/// the text; one hit is the current one.
class LogSearch {
 public:
  explicit LogSearch(const ReplyLog& log) : log_(log) {}

  /// Seeks another text, with `times` also in the times before the lines; "" ends the search. No
  /// hit is the current one.
  void Seek(std::string_view what, bool times);

  /// Takes over what has happened in the log. Reads only the lines that are new.
  void Update();

  /// Go to the last hit up to `line`, or else to the first one; to the next or the previous hit,
  /// around the ends. Return its number; nothing without hits.
  std::optional<std::uint64_t> Nearest(std::uint64_t line);
  std::optional<std::uint64_t> Next();
  std::optional<std::uint64_t> Previous();

  bool Active() const { return !what_.empty(); }
  /// The text in upper case.
  const std::string& What() const { return what_; }
  std::size_t Total() const { return hits_.size(); }
  /// The place of the current hit, from 1; 0 without one, or if it has left the log.
  std::size_t Place() const;

 private:
  using Hits = std::deque<std::uint64_t>;
  std::optional<std::uint64_t> Go(const Hits::const_iterator& to);

  const ReplyLog& log_;
  std::string what_;
  bool times_ = false;
  Hits hits_;               // numbers of lines, in their order
  std::uint64_t seen_ = 0;  // lines below are searched
  std::optional<std::uint64_t> current_;
};

}  // namespace zek
