#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <utility>

namespace zek {

/// The state that enables or disables an editor's commands.
struct EditState {
  bool changed = false;  // compared with the table as it was opened
  bool canUndo = false;
  bool canRedo = false;

  bool operator==(const EditState&) const = default;
};

inline constexpr std::size_t kUndoSteps = 1000;

/// A table and the steps that changed it. A step contains the table before it and its place, so
/// that the user sees what an undo reverts. Beyond `kUndoSteps` the oldest step is dropped. A
/// change between tables that are equal by `Same` is not a step.
template <class Table, class Place, class Same = std::equal_to<Table>>
class UndoHistory {
 public:
  explicit UndoHistory(Table table) : table_(table), opened_(std::move(table)) {}

  const Table& Now() const { return table_; }

  /// Calls `edit` to change the table as one step at `place`. Undone steps are dropped.
  template <class Edit>
  void Change(const Place& place, Edit edit) {
    Step step{place, table_};
    edit(table_);
    if (Same()(step.table, table_)) return;
    steps_.erase(steps_.begin() + static_cast<std::ptrdiff_t>(done_), steps_.end());
    steps_.push_back(std::move(step));
    if (steps_.size() > kUndoSteps) steps_.pop_front();
    done_ = steps_.size();
  }

  /// Reverts the last step, or repeats it; returns its place, or nothing if there is no step.
  std::optional<Place> Undo() { return done_ == 0 ? std::nullopt : std::optional(Swap(--done_)); }
  std::optional<Place> Redo() {
    return done_ == steps_.size() ? std::nullopt : std::optional(Swap(done_++));
  }

  EditState State() const { return {!Same()(table_, opened_), done_ > 0, done_ < steps_.size()}; }

 private:
  struct Step {
    Place place;
    Table table;  // before the step; after it once it was undone
  };

  const Place& Swap(std::size_t step) {
    std::swap(table_, steps_[step].table);
    return steps_[step].place;
  }

  Table table_;
  Table opened_;
  std::deque<Step> steps_;
  std::size_t done_ = 0;  // the number of steps in effect; the others were undone
};

}  // namespace zek
