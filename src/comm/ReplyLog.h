#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

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
  void Replace(std::vector<std::string> lines);

  /// All lines, the oldest first. Most lines of a flood are gone before anybody looks, so that
  /// it's here that they are put in order and get their control characters replaced.
  const std::vector<std::string>& Lines() const;

  /// How many lines were ever added by `Add`, and how often `Replace` was called: with both, a
  /// view knows what it has not shown yet.
  std::uint64_t Added() const { return added_; }
  std::uint64_t Replaced() const { return replaced_; }

 private:
  mutable std::vector<std::string> lines_;
  mutable std::size_t first_ = 0;  // where the oldest line stands
  mutable std::size_t raw_ = 0;    // so many of the youngest are as they came
  std::uint64_t added_ = 0;
  std::uint64_t replaced_ = 0;
};

}  // namespace zek
