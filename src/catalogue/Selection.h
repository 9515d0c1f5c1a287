#pragma once

#include <cstdint>
#include <string>

#include "catalogue/CatalogueKind.h"
#include "catalogue/LocalFiles.h"
#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"

namespace zek {

/// The node of the browser on which Get, Erase, the transfers and the connection work.
struct Selection {
  std::int16_t CurrentObject = -1;  // the object's index in the topic table; -1 = none
  std::string TscName;              // of the time control; "" for a root node
  Generation generation = Generation::Zek1;
  LocalFileNames LocalFiles;
  std::int32_t PickListTable = 0;  // the number behind "TXI_"; 0 = none

  /// A catalogue of this node.
  CatalogueId Id(Catalogue catalogue) const;
  bool Has(Catalogue catalogue) const { return !LocalFiles[catalogue].empty(); }
};

/// The selection of the node at that place of the tree.
Selection SelectionOf(const ObjectTree& tree, const TopicTable& topics, std::size_t node);

}  // namespace zek
