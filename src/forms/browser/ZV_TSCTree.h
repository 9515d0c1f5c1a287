#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/treectrl.h>
#include <wx/vector.h>

#include "catalogue/ObjectTree.h"

namespace zek {

/// The pictures of the browser's tree, crisp at any resolution. The index is the `NodePicture`;
/// 0 is blank.
wxVector<wxBitmapBundle> NodePictures();

/// `TreeView`: shows an `ObjectTree` and speaks of its nodes by their places in it.
class ObjectTreeView final : public wxTreeCtrl {
 public:
  explicit ObjectTreeView(wxWindow* parent);

  /// Replaces what is shown. Nothing is selected afterwards.
  void ShowNodes(const ObjectTree& tree);

  std::optional<std::size_t> Selected() const;
  std::optional<std::size_t> PlaceOf(const wxTreeItemId& item) const;

  /// Selects a node, opens it when it is an object, and scrolls to it.
  void SelectPlace(std::size_t place);

  /// Where a menu for the selected node belongs.
  wxPoint MenuPlace() const;

  void ExpandObjects();
  void CollapseObjects();

 private:
  std::vector<wxTreeItemId> items_;  // by place
};

}  // namespace zek
