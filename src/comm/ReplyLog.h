#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace zek {

/// The lines of `List_Output`.
class ReplyLog {
 public:
  /// A reply line makes the log drop its first line when it then holds more than this.
  static constexpr std::size_t kLines = 250;

  /// Told of every line as it is shown, also of those that many others push out at once.
  std::function<void(const std::string& shown)> Echo;

  /// Adds a reply line: characters below 32 as "<" code ">", all others as they are.
  void Add(std::string_view line);

  /// Replaces all lines, by those of a file or none; their number is not limited.
  void Replace(std::deque<std::string> lines);

  const std::deque<std::string>& Lines() const { return lines_; }

  /// How many lines were ever added by `Add`, and how often `Replace` was called: with both, a
  /// view knows what it has not shown yet.
  std::uint64_t Added() const { return added_; }
  std::uint64_t Replaced() const { return replaced_; }

 private:
  std::deque<std::string> lines_;
  std::uint64_t added_ = 0;
  std::uint64_t replaced_ = 0;
};

/// The line as the log shows it, put behind `shown`.
void AppendShown(std::string& shown, std::string_view line);

}  // namespace zek
