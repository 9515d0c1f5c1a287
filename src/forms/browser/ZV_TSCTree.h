#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/treectrl.h>
#include <wx/vector.h>

#include "catalogue/ObjectTree.h"

namespace zek {

/// The pictures of the browser's tree, sharp at any resolution. The index is the `NodePicture`;
/// 0 is blank.
wxVector<wxBitmapBundle> NodePictures();

/// `TreeView`: shows an `ObjectTree`. A node is identified by its index in that tree (its place).
class ObjectTreeView final : public wxTreeCtrl {
 public:
  explicit ObjectTreeView(wxWindow* parent);

  /// Replaces the nodes shown and clears the selection.
  void ShowNodes(const ObjectTree& tree);

  std::optional<std::size_t> Selected() const;
  std::optional<std::size_t> PlaceOf(const wxTreeItemId& item) const;

  /// Selects a node, expands it if it is an object, and scrolls to it.
  void SelectPlace(std::size_t place);

  /// The position for a menu of the selected node.
  wxPoint MenuPlace() const;

  void ExpandObjects();
  void CollapseObjects();

 private:
  std::vector<wxTreeItemId> items_;  // by place
};

}  // namespace zek
