#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/CopyFormat.h"
#include "catalogue/ObjectTree.h"
#include "comm/TopicTable.h"

namespace zek {

/// The node of the browser that Get, Erase, the transfers and the connection work on.
struct Selection {
  std::int16_t CurrentObject = -1;  // the object's index in the topic table; -1 = no selection
  std::string TscName;              // of the time control; "" for a root node
  Generation generation = Generation::Zek1;
  LocalFileNames LocalFiles;
  std::int32_t PickListTable = 0;        // the number after "TXI_"; 0 = no pick-list
  std::string TopicName;                 // of the object
  std::vector<std::string> pltControls;  // of the object, see `LineOwner`

  CatalogueId Id(Catalogue catalogue) const;
  bool Has(Catalogue catalogue) const { return !LocalFiles[catalogue].empty(); }
};

/// Returns the selection for the node at an index of the tree.
Selection SelectionOf(const ObjectTree& tree, const TopicTable& topics, std::size_t node);

}  // namespace zek
