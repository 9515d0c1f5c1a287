#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zek {

/// The commands that were typed, for Up and Down in the command line.
class CommandHistory {
 public:
  /// Adds a command, unless it is empty or the newest one.
  void Add(const std::string& command) {
    if (!command.empty() && (commands_.empty() || commands_.back() != command))
      commands_.push_back(command);
    at_ = commands_.size();
  }

  /// Returns the command before or after the one shown last. `typed` is what the command line has;
  /// it comes back after the newest command.
  std::string Older(const std::string& typed) {
    if (at_ == commands_.size()) typed_ = typed;
    if (at_ > 0) --at_;
    return at_ < commands_.size() ? commands_[at_] : typed_;
  }
  std::string Newer(const std::string& typed) {
    if (at_ == commands_.size()) return typed;
    return ++at_ < commands_.size() ? commands_[at_] : typed_;
  }

 private:
  std::vector<std::string> commands_;
  std::size_t at_ = 0;  // the one shown; behind the last: what is typed
  std::string typed_;
};

}  // namespace zek
