#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/ObjectTree.h"
#include "formats/BuiltLines.h"
#include "formats/ExportRecords.h"
#include "settings/Settings.h"

namespace zek {

/// A catalogue as its editor reads it.
struct LoadedCatalogue {
  std::size_t linesLost = 0;         // lines not in the table, including those with "*"
  std::vector<std::string> records;  // the table as records of the batch export
  /// Returns the lines that saving the unchanged table would send, or nothing, after a message, if
  /// a setting for their line numbers is invalid. `settings` and `numbers` must outlive it.
  std::function<std::optional<BuiltLines>()> rebuild;
};

/// Returns the first three fields, separated by "/", of the node's text before "[".
RecordLabels LabelsOf(const TreeNode& node);

/// Reads a catalogue into its editor's table, without a window. Shows refused lines as the editor
/// does.
LoadedCatalogue LoadCatalogue(const CatalogueId& id, const CatalogueContent& content,
                              const RecordLabels& labels, const Settings& settings,
                              const NumberReader& numbers);

}  // namespace zek
