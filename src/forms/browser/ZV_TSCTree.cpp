#include "forms/browser/ZV_TSCTree.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include <wx/utils.h>
#include <wx/wupdlock.h>

#include "ui/WxText.h"

namespace zek {

namespace {

constexpr int kPictureSize = 16;

// A folder: a group of nodes.
constexpr std::string_view kGroup =
    R"(<path d="M1.5 4 a1 1 0 0 1 1-1 H6 L7.5 5 H13.5 a1 1 0 0 1 1 1 V12.5 a1 1 0 0 1 -1 1 H2.5 a1 1 0 0 1 -1 -1 Z"
 fill="#ffe0a3" stroke="#b07d2b"/>)";

// Laid over the picture of a node with unsent changes.
constexpr std::string_view kMark =
    R"(<circle cx="12" cy="4" r="3.5" fill="#e65100" stroke="#ffffff"/>)";

// A controller in its cabinet; grey if it has no time control.
constexpr std::string_view kEmptyObject =
    R"(<rect x="2.5" y="1.5" width="11" height="13" rx="1.5" fill="#eceff1" stroke="#90a4ae"/>
<rect x="4.5" y="3.5" width="7" height="4" fill="#cfd8dc" stroke="#90a4ae"/>
<circle cx="5.5" cy="11.5" r="1" fill="#90a4ae"/><circle cx="8.5" cy="11.5" r="1" fill="#90a4ae"/>)";

constexpr std::string_view kObject =
    R"(<rect x="2.5" y="1.5" width="11" height="13" rx="1.5" fill="#eceff1" stroke="#455a64"/>
<rect x="4.5" y="3.5" width="7" height="4" fill="#1e88e5" stroke="#0d47a1"/>
<circle cx="5.5" cy="11.5" r="1.2" fill="#43a047"/><circle cx="9" cy="11.5" r="1.2" fill="#fb8c00"/>)";

// Clocks; ZEK1 and ZEK2 differ in shape, not only in colour.
constexpr std::string_view kTimeControl1 =
    R"(<circle cx="8" cy="8" r="6.5" fill="#ffffff" stroke="#1565c0" stroke-width="1.5"/>
<path d="M8 4 L8 8 L11 9.8" fill="none" stroke="#263238" stroke-width="1.4"/>)";

constexpr std::string_view kTimeControl2 =
    R"(<rect x="1.5" y="1.5" width="13" height="13" rx="3" fill="#ffffff" stroke="#2e7d32" stroke-width="1.5"/>
<path d="M8 4 L8 8 L11 9.8" fill="none" stroke="#263238" stroke-width="1.4"/>)";

constexpr std::array kPictures{kGroup, kEmptyObject, kObject, kTimeControl1, kTimeControl2};

}  // namespace

wxVector<wxBitmapBundle> NodePictures() {
  wxVector<wxBitmapBundle> bundles;
  for (const std::string_view mark : {std::string_view(), kMark}) {
    for (const std::string_view shapes : kPictures) {
      const std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)" +
                              std::string(shapes) + std::string(mark) + "</svg>";
      bundles.push_back(wxBitmapBundle::FromSVG(svg.c_str(), wxSize(kPictureSize, kPictureSize)));
    }
  }
  return bundles;
}

ObjectTreeView::ObjectTreeView(wxWindow* parent)
    : wxTreeCtrl(
          parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
          wxTR_HAS_BUTTONS | wxTR_NO_LINES | wxTR_LINES_AT_ROOT | wxTR_HIDE_ROOT | wxTR_SINGLE) {
  SetName("TreeView");
  SetImages(NodePictures());
  Bind(wxEVT_TREE_ITEM_GETTOOLTIP, [this](wxTreeEvent& event) {
    if (const auto index = IndexOf(event.GetItem())) event.SetToolTip(ToolTipOf(*index));
  });
}

void ObjectTreeView::ShowItems(std::vector<TreeItem> items, const ObjectTree& tree) {
  const wxWindowUpdateLocker still(this);
  DeleteAllItems();
  tree_ = &tree;
  items_ = std::move(items);
  ids_.clear();
  shown_.assign(tree.size(), 0);
  const wxTreeItemId root = AddRoot({});
  for (const TreeItem& item : items_) {
    const int picture = item.node ? static_cast<int>(tree.at(*item.node).Picture) : 0;
    if (item.node) shown_.at(*item.node) = ids_.size();
    ids_.push_back(
        AppendItem(item.parent ? ids_.at(*item.parent) : root, ToWx(item.text), picture));
  }
}

void ObjectTreeView::MarkNodes(std::vector<bool> marked) {
  marked.resize(shown_.size());
  std::vector<bool> marks(items_.size());
  for (std::size_t index = items_.size(); index-- > 0;) {
    const TreeItem& item = items_[index];
    marks[index] = marks[index] || (item.node && marked[*item.node]);
    if (marks[index] && item.parent) marks[*item.parent] = true;
  }
  const int pictures = static_cast<int>(kPictures.size());
  for (std::size_t index = 0; index < items_.size(); ++index) {
    const int before = GetItemImage(ids_[index]);
    const int now = before % pictures + (marks[index] ? pictures : 0);
    if (now != before) SetItemImage(ids_[index], now);
  }
}

// The addresses, which the groups do not show.
wxString ObjectTreeView::ToolTipOf(std::size_t index) const {
  if (!items_[index].node) return {};
  const TreeNode& node = tree_->at(*items_[index].node);
  return ToWx(node.Parent ? tree_->at(*node.Parent).Text + "\n" + node.Text : node.Text);
}

std::optional<std::size_t> ObjectTreeView::Selected() const { return PlaceOf(GetSelection()); }

std::vector<std::size_t> ObjectTreeView::PlacesAround() const {
  const auto index = IndexOf(GetSelection());
  return index ? NodesAround(items_, *index) : std::vector<std::size_t>();
}

std::optional<std::size_t> ObjectTreeView::IndexOf(const wxTreeItemId& item) const {
  const auto found = std::find(ids_.begin(), ids_.end(), item);
  if (!item.IsOk() || found == ids_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - ids_.begin());
}

std::optional<std::size_t> ObjectTreeView::PlaceOf(const wxTreeItemId& item) const {
  const auto index = IndexOf(item);
  return index ? items_[*index].node : std::nullopt;
}

void ObjectTreeView::SelectPlace(std::size_t place) {
  const wxTreeItemId item = ids_.at(shown_.at(place));
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
  for (const wxTreeItemId& item : ids_)
    if (ItemHasChildren(item)) Expand(item);
  if (Selected()) EnsureVisible(GetSelection());
}

void ObjectTreeView::CollapseObjects() {
  const wxWindowUpdateLocker still(this);
  for (const wxTreeItemId& item : ids_)
    if (ItemHasChildren(item)) Collapse(item);
}

}  // namespace zek
