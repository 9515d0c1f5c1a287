#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// An earlier local copy: "History\NAME YYYYMMDD-HHNNSS.TXT" in the program directory, where NAME
/// is that of the local copy, cut when it is very long. The time is when the copy was replaced or
/// erased.
struct KeptCopy {
  std::string id;    // "20261121-083000"; "20261121-083000-2" for the second one of that second
  std::string time;  // "2026-11-21 08:30:00", with " (2)" for that second one
  std::string path;  // UTF-8
};

/// The earlier copies of one local copy.
class History {
 public:
  /// `name` is that of the local copy, as in `LocalFileNames`; `count` is how many are kept.
  History(Files& files, const std::string& programPath, std::string_view name, int count);

  /// The newest first.
  std::vector<KeptCopy> Kept() const;

  /// Keeps what stands in the local copy now, before it is replaced by `next` (or erased, without
  /// one). Nothing is kept when there is no local copy, when it would not change, or when it is the
  /// newest copy already. With an error the local copy must stay as it is.
  std::optional<FileError> Keep(std::optional<std::string_view> next, const LocalTime& now);

  /// Removes the copies beyond `count`, the oldest first, never the one just kept. To be called
  /// when the local copy has been replaced: until then one of them may be what is being restored.
  void Prune();

 private:
  std::string NewId(const LocalTime& now) const;
  bool IsNewest(const std::string& bytes) const;

  Files& files_;
  std::string folder_;  // with a separator at its end
  std::string stem_;    // of the file names, UTF-8: the local copy's without ".TXT"
  std::string local_;   // path of the local copy
  std::string justKept_;
  int count_;
};

/// What stands in two local copies and only in one of them, in the order of the lines: "- " and
/// the line for `before`, "+ " and the line for `after`. Only the part that is read of a local copy
/// is compared.
std::vector<std::string> DifferencesOf(std::string_view before, std::string_view after);

}  // namespace zek
