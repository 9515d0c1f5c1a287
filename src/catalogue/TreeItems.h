#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/ObjectTree.h"

namespace zek {

/// A line of the browser's tree: a node, or a group of nodes at one place.
struct TreeItem {
  std::string text;
  std::optional<std::size_t> parent;  // index of an earlier item; empty at the top
  std::optional<std::size_t> node;    // index in the object tree; empty for a group
};

/// Returns "Air [AHU1]" of "School/DUC 1/Air [AHU1]".
std::string_view LastPart(std::string_view nodeText);

/// Returns each object with its time controls below it; the indices are those of the tree.
std::vector<TreeItem> ItemsByObject(const ObjectTree& tree);

/// Returns the nodes grouped by the parts of their labels: "School/DUC 1/Air [AHU1]" is "Air
/// [AHU1]" in the group "DUC 1" of "School". An object lies in the smallest group that has all its
/// controls; its text is its description in place of `%1` of `wholeObject`.
std::vector<TreeItem> ItemsByPlace(const ObjectTree& tree, const TopicTable& topics,
                                   std::string_view wholeObject);

/// Returns the nodes that have every word of `wanted` in their text or their object's, in any case.
/// Only words with "." or ":" are sought in the controller's address, too.
std::vector<std::size_t> NodesWith(const ObjectTree& tree, std::string_view wanted);

/// Returns the nodes of an item and of all items below it; of an item with none below it, those of
/// the item above it.
std::vector<std::size_t> NodesAround(const std::vector<TreeItem>& items, std::size_t item);

}  // namespace zek
