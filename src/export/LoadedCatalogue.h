#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/BuiltLines.h"
#include "formats/RecordLabels.h"

namespace zek {

/// A catalogue as its editor has read it.
struct LoadedCatalogue {
  std::size_t linesLost = 0;         // lines that the table does not hold, those with "*" too
  std::vector<std::string> records;  // the table as lines of the batch export
  /// The lines that saving the unchanged table would send; nothing when a setting that they are
  /// numbered by can't be used, which was told. Valid as long as `proc` is and its catalogue stays.
  std::function<std::optional<BuiltLines>()> rebuild;
};

/// The first three "/"-separated fields of the node's text in front of "[".
RecordLabels LabelsOf(const TreeNode& node);

/// Reads `proc.transfer.CatalogueLines` of the selected node into the editor's table, without a
/// window. Refused lines are told as the editor tells them.
LoadedCatalogue LoadCatalogue(const ZV_Proc& proc, Catalogue catalogue, const RecordLabels& labels);

}  // namespace zek
