#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "system/LocalTime.h"

namespace zek {

/// The lines of `List_Output`.
class ReplyLog {
 public:
  /// When `Add` exceeds this number of lines, the oldest line is removed.
  static constexpr std::size_t kLines = 250;

  /// Called with every added line as it is shown, even one that newer lines soon push out.
  std::function<void(const std::string& shown)> Echo;

  /// Called with every line that is added, before its control characters are replaced, and with its
  /// time. Must not change the log.
  std::function<void(std::string_view line, const LocalTime& since)> Record;

  /// The clock for lines that are added without a time.
  Clock Now = SystemTime;

  /// Adds a line. It shows characters below 32 as "<" code ">", all others unchanged.
  void Add(std::string_view line) { SetTime(Now()), AddReply(line); }

  /// The same for one of many lines: its time is that of the last `SetTime`, since a clock for each
  /// line of a flood would cost more than the line.
  void AddReply(std::string_view line);
  void SetTime(const LocalTime& since);

  /// Adds a command that was sent, behind `kSentMark`. It is not echoed.
  void AddSent(std::string_view command);
  static constexpr std::string_view kSentMark = "> ";

  /// Replaces all lines, for example by those of a file, which have no time. Their number is not
  /// limited.
  void Replace(std::vector<std::string> lines);

  /// Returns all lines, the oldest first. Most lines of a flood are never shown, so only this call
  /// sorts them and replaces their control characters.
  const std::vector<std::string>& Lines() const;

  /// When the first character of that line came; year 0 of a line without a time.
  LocalTime Since(std::uint64_t number) const;

  /// The number of calls of `Add` and of `Replace`. A view finds from them the lines that it has
  /// not shown yet.
  std::uint64_t Added() const { return added_; }
  std::uint64_t Replaced() const { return replaced_; }

  /// Each line has a number that it keeps and that no other line ever gets: these are the numbers
  /// of the oldest line and of the next one to come.
  std::uint64_t First() const { return end_ - lines_.size(); }
  std::uint64_t End() const { return end_; }

 private:
  // The lines from a number on came at that time.
  struct Times {
    std::uint64_t from = 0;
    LocalTime since;
  };

  void AddLine(std::string_view line);

  mutable std::vector<std::string> lines_;
  mutable std::size_t first_ = 0;  // index of the oldest line
  mutable std::size_t raw_ = 0;    // number of newest lines with control characters not replaced
  std::vector<Times> times_;       // in their order
  std::uint64_t end_ = 0;
  std::uint64_t added_ = 0;
  std::uint64_t replaced_ = 0;
};

}  // namespace zek
