#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/CatalogueContent.h"
#include "catalogue/CatalogueKind.h"
#include "catalogue/ObjectTree.h"
#include "formats/BuiltLines.h"
#include "formats/RecordLabels.h"
#include "settings/Settings.h"

namespace zek {

/// A catalogue as its editor has read it.
struct LoadedCatalogue {
  std::size_t linesLost = 0;         // lines that the table does not hold, those with "*" too
  std::vector<std::string> records;  // the table as lines of the batch export
  /// The lines that saving the unchanged table would send; nothing when a setting that they are
  /// numbered by can't be used, which was shown. Valid as long as `settings` and `numbers` are.
  std::function<std::optional<BuiltLines>()> rebuild;
};

/// The first three "/"-separated fields of the node's text in front of "[".
RecordLabels LabelsOf(const TreeNode& node);

/// Reads a catalogue into its editor's table, without a window. Refused lines are shown as the
/// editor shows them.
LoadedCatalogue LoadCatalogue(const CatalogueId& id, const CatalogueContent& content,
                              const RecordLabels& labels, const Settings& settings,
                              const NumberReader& numbers);

}  // namespace zek
