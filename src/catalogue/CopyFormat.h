#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"

namespace zek {

/// The names of a node's local copies, without directory, in windows-1252. A root node of an object
/// whose kind is not 1 has no weekday and exception catalogue: those names are empty. Objects with
/// the same address and description share their copies; so do names that differ only in characters
/// that become "_".
struct LocalFileNames {
  std::string SDC;
  std::string WDC;
  std::string OVC;

  const std::string& operator[](Catalogue catalogue) const;
};

LocalFileNames LocalFilesOf(const Topic& topic, const TreeNode& node);

/// Returns the path of a file in the program directory, in UTF-8. Characters that some system does
/// not allow in file names become "_", and so do dots and blanks at the end. A device name gets a
/// leading "_". So no name leads out of the directory. The file system refuses a name that is too
/// long.
std::string LocalPath(const std::string& programPath, std::string_view name);

/// The content of a local copy.
struct LocalCopy {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;  // from the last ".DFV" line, which is not one of the lines
  bool tooLong = false;            // more lines than a catalogue can have; the rest was not read
};

/// Parses a local copy: one catalogue line per line, and the ".DFV" line. Blank lines are skipped.
LocalCopy ReadLocalCopy(std::string_view file);

/// Returns the text of a local copy: first the line ".DFV = " if there is a value. Lines end in CR
/// LF.
std::string BuildLocalCopy(const std::vector<std::string>& lines,
                           const std::optional<std::string>& dfv);

}  // namespace zek
