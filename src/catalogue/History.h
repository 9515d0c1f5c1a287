#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// An earlier local copy: "History\NAME YYYYMMDD-HHNNSS.TXT" in the program directory. NAME is that
/// of the local copy, cut if it is very long. The time is when the copy was replaced or erased.
struct KeptCopy {
  std::string id;    // "20261121-083000"; "20261121-083000-2" for a second copy in that second
  std::string time;  // "2026-11-21 08:30:00", with " (2)" for a second copy
  std::string path;  // UTF-8
};

/// The earlier copies of one local copy.
class History {
 public:
  /// `name` is a name in `LocalFileNames`; `count` is the number of copies to keep.
  History(Files& files, const std::string& programPath, std::string_view name, int count);

  /// Returns the earlier copies, newest first.
  std::vector<KeptCopy> Kept() const;

  /// Keeps the present local copy before it is replaced by `next`, or erased if `next` is empty.
  /// Keeps nothing if there is no local copy, if it would not change, or if it equals the newest
  /// kept copy. After an error the caller must leave the local copy unchanged.
  std::optional<FileError> Keep(std::optional<std::string_view> next, const LocalTime& now);

  /// Removes the copies beyond `count`, the oldest first, but never the one just kept. Call it
  /// after the local copy has been replaced: until then one of them may be the one that is being
  /// restored.
  void Prune();

 private:
  std::string NewId(const LocalTime& now) const;
  bool IsNewest(const std::string& bytes) const;

  Files& files_;
  std::string folder_;  // with a separator at its end
  std::string stem_;    // start of the file names, UTF-8: the local copy's name without ".TXT"
  std::string local_;   // path of the local copy
  std::string justKept_;
  int count_;
};

/// Returns the lines that only one of two local copies has, in order: "- " and the line for
/// `before`, "+ " and the line for `after`. Lines beyond the limit of a local copy are not
/// compared.
std::vector<std::string> DifferencesOf(std::string_view before, std::string_view after);

}  // namespace zek
