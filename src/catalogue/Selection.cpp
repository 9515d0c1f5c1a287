#include "catalogue/Selection.h"

namespace zek {

CatalogueId Selection::Id(Catalogue catalogue) const {
  return {catalogue, CurrentObject, TscName, generation, LocalFiles[catalogue],
          TopicName, pltControls};
}

Selection SelectionOf(const ObjectTree& tree, const TopicTable& topics, std::size_t node) {
  const TreeNode& selected = tree.at(node);
  const Topic& topic = topics[selected.Object];
  return {selected.Object,
          selected.TscName,
          topic.TopicType,
          LocalFilesOf(topic, selected),
          selected.PickListTable,
          topic.TopicName,
          PltControlsOf(tree, selected.Object)};
}

}  // namespace zek
