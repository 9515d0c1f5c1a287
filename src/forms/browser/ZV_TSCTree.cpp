#include "forms/browser/ZV_TSCTree.h"

#include <algorithm>

#include <wx/utils.h>
#include <wx/wupdlock.h>

#include "forms/browser/NodePictures.h"
#include "ui/WxText.h"

namespace zek {

ObjectTreeView::ObjectTreeView(wxWindow* parent)
    : wxTreeCtrl(
          parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
          wxTR_HAS_BUTTONS | wxTR_NO_LINES | wxTR_LINES_AT_ROOT | wxTR_HIDE_ROOT | wxTR_SINGLE) {
  SetName("TreeView");
  SetImages(NodePictures());
}

void ObjectTreeView::ShowNodes(const ObjectTree& tree) {
  const wxWindowUpdateLocker still(this);
  DeleteAllItems();
  items_.clear();
  const wxTreeItemId root = AddRoot({});
  for (const TreeNode& node : tree) {
    const wxTreeItemId parent = node.Parent ? items_.at(*node.Parent) : root;
    items_.push_back(AppendItem(parent, ToWx(node.Text), static_cast<int>(node.Picture)));
  }
}

std::optional<std::size_t> ObjectTreeView::Selected() const { return PlaceOf(GetSelection()); }

std::optional<std::size_t> ObjectTreeView::PlaceOf(const wxTreeItemId& item) const {
  const auto found = std::find(items_.begin(), items_.end(), item);
  if (!item.IsOk() || found == items_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - items_.begin());
}

void ObjectTreeView::SelectPlace(std::size_t place) {
  const wxTreeItemId item = items_.at(place);
  SelectItem(item);
  if (ItemHasChildren(item)) Expand(item);
  EnsureVisible(item);
}

wxPoint ObjectTreeView::MenuPlace() const {
  const wxPoint mouse = ScreenToClient(wxGetMousePosition());
  wxRect node;
  if (!GetBoundingRect(GetSelection(), node, true) || node.Contains(mouse)) return mouse;
  return node.GetBottomLeft();
}

void ObjectTreeView::ExpandObjects() {
  const wxWindowUpdateLocker still(this);
  for (const wxTreeItemId& item : items_)
    if (ItemHasChildren(item)) Expand(item);
  if (Selected()) EnsureVisible(GetSelection());
}

void ObjectTreeView::CollapseObjects() {
  const wxWindowUpdateLocker still(this);
  for (const wxTreeItemId& item : items_)
    if (ItemHasChildren(item)) Collapse(item);
}

}  // namespace zek
