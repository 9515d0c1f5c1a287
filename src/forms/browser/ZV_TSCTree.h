#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/treectrl.h>
#include <wx/vector.h>

#include "catalogue/ObjectTree.h"
#include "catalogue/TreeItems.h"

namespace zek {

/// The pictures of the browser's tree, sharp at any resolution. The index is the `NodePicture`; 0
/// is a group. The same pictures with a mark follow.
wxVector<wxBitmapBundle> NodePictures();

/// `TreeView`: shows an `ObjectTree`, by object or grouped. A node is identified by its index in
/// that tree (its place).
class ObjectTreeView final : public wxTreeCtrl {
 public:
  explicit ObjectTreeView(wxWindow* parent);

  /// Replaces the nodes shown and clears the selection. The tree must outlive them.
  void ShowItems(std::vector<TreeItem> items, const ObjectTree& tree);

  /// Marks these nodes, by place, and every item above them.
  void MarkNodes(std::vector<bool> marked);

  std::optional<std::size_t> Selected() const;
  /// The nodes of the selected object or group, or of the one that the selected node belongs to.
  std::vector<std::size_t> PlacesAround() const;
  std::optional<std::size_t> PlaceOf(const wxTreeItemId& item) const;

  /// Selects a node, expands it if it is an object, and scrolls to it.
  void SelectPlace(std::size_t place);

  /// The position for a menu of the selected node.
  wxPoint MenuPlace() const;

  void ExpandObjects();
  void CollapseObjects();

 private:
  std::optional<std::size_t> IndexOf(const wxTreeItemId& item) const;
  wxString ToolTipOf(std::size_t index) const;

  const ObjectTree* tree_ = nullptr;  // of the items
  std::vector<TreeItem> items_;
  std::vector<wxTreeItemId> ids_;   // of the items
  std::vector<std::size_t> shown_;  // index of the item of each place
};

}  // namespace zek
