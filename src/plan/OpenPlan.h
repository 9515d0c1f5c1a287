#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/ZV_Proc.h"
#include "plan/Plan.h"
#include "plan/StartedNote.h"

namespace zek {

/// A plan file that nobody else applies meanwhile, or why it can't be applied.
struct OpenedPlan {
  std::unique_ptr<FileLock> lock;  // null: somebody else has it, or it can't be opened
  Plan plan;
  std::optional<StartedNote> started;
  std::string why;  // "" if it can be applied
};

/// `path` is UTF-8.
OpenedPlan OpenPlan(ZV_Proc& proc, const std::string& path);

/// Returns the message that a plan's file is not whole.
std::string DamagedText(ZV_Proc& proc, const std::string& path, std::size_t line);

/// Returns the message that a plan was begun and has not ended.
std::string StartedText(ZV_Proc& proc, const std::string& path);

}  // namespace zek
