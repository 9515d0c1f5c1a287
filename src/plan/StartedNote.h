#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "plan/Plan.h"
#include "system/Files.h"

namespace zek {

/// The file beside a plan that names the catalogues whose sending began and was not seen to end,
/// with the controls' lines as they were before. It exists only while there are such catalogues.
class StartedNote {
 public:
  using Lines = std::vector<std::string>;

  /// Reads the note of the plan in `planPath`; `checksum` names the plan.
  StartedNote(Files& files, const std::string& planPath, std::string checksum);

  static std::string PathOf(const std::string& planPath) { return planPath + ".started"; }

  /// False if the file belongs to another plan, or is damaged.
  bool IsOfPlan() const { return isOfPlan_; }

  /// Returns the lines before the sending; null if it did not begin.
  const Lines* Before(const PlannedCatalogue& catalogue) const;

  /// Call it before the first command of a catalogue, and go on only without an error.
  std::optional<FileError> Begin(const PlannedCatalogue& catalogue, const Lines& before);

  std::optional<FileError> End(const PlannedCatalogue& catalogue);

 private:
  std::optional<FileError> Write();

  Files& files_;
  std::string path_;
  std::string format_;
  std::map<std::string, Lines> started_;  // by kind and node
  bool isOfPlan_ = true;
};

}  // namespace zek
