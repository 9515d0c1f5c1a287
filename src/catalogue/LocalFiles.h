#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueContent.h"
#include "catalogue/CatalogueKind.h"
#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"

namespace zek {

/// The names of a node's local copies, without directory, windows-1252. A root node of an object
/// whose kind is not 1 has no weekday and exception catalogue: those names are empty. Objects with
/// the same address and description share their copies, as do names that differ only in what
/// becomes "_".
struct LocalFileNames {
  std::string SDC;
  std::string WDC;
  std::string OVC;

  const std::string& operator[](Catalogue catalogue) const;
};

LocalFileNames LocalFilesOf(const Topic& topic, const TreeNode& node);

/// The path of a file in the program directory, in UTF-8. Characters that a file name can't hold on
/// any system become "_", and so do dots and blanks at its end; what would be a device gets a "_"
/// in front. So no name leads out of the directory. One that is too long is refused by the disk.
std::string LocalPath(const std::string& programPath, std::string_view name);

/// A catalogue as its local copy holds it.
struct LocalCopy {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;  // of the last ".DFV" line, which is not one of the lines
  bool tooLong = false;            // more lines than a catalogue can have; the rest was not read
};

/// Reads a local copy: one catalogue line a line, and the ".DFV" line.
LocalCopy ReadLocalCopy(std::string_view file);

/// The text of a local copy: the line ".DFV = " first when there is a value, lines end in CR LF.
std::string BuildLocalCopy(const std::vector<std::string>& lines,
                           const std::optional<std::string>& dfv);

}  // namespace zek
