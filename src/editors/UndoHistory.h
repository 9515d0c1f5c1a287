#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <utility>

namespace zek {

/// What an editor's commands are enabled by.
struct EditState {
  bool changed = false;  // against the table as it was opened
  bool canUndo = false;
  bool canRedo = false;

  bool operator==(const EditState&) const = default;
};

inline constexpr std::size_t kUndoSteps = 1000;

/// A table and the steps that changed it. A step holds the table before it and the place where it
/// was made, so that the user can be shown what an undo takes back. Beyond `kUndoSteps` the oldest
/// step is forgotten. `Same` tells tables that mean the same, which are no step.
template <class Table, class Place, class Same = std::equal_to<Table>>
class UndoHistory {
 public:
  explicit UndoHistory(Table table) : table_(table), opened_(std::move(table)) {}

  const Table& Now() const { return table_; }

  /// Has `edit` change the table, as one step at `place`. Steps that were undone are forgotten.
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

  /// Takes the last step back, or takes it again; where it was made, or nothing without one.
  std::optional<Place> Undo() { return done_ == 0 ? std::nullopt : std::optional(Swap(--done_)); }
  std::optional<Place> Redo() {
    return done_ == steps_.size() ? std::nullopt : std::optional(Swap(done_++));
  }

  EditState State() const { return {!Same()(table_, opened_), done_ > 0, done_ < steps_.size()}; }

 private:
  struct Step {
    Place place;
    Table table;  // before the step, or after it once it was undone
  };

  const Place& Swap(std::size_t step) {
    std::swap(table_, steps_[step].table);
    return steps_[step].place;
  }

  Table table_;
  Table opened_;
  std::deque<Step> steps_;
  std::size_t done_ = 0;  // the steps from here on were undone
};

}  // namespace zek
