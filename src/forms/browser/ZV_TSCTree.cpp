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

constexpr std::string_view kBlank;

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

constexpr std::array kPictures{kBlank, kEmptyObject, kObject, kTimeControl1, kTimeControl2};

}  // namespace

wxVector<wxBitmapBundle> NodePictures() {
  wxVector<wxBitmapBundle> bundles;
  for (const std::string_view shapes : kPictures) {
    const std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 16 16">)" +
                            std::string(shapes) + "</svg>";
    bundles.push_back(wxBitmapBundle::FromSVG(svg.c_str(), wxSize(kPictureSize, kPictureSize)));
  }
  return bundles;
}

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
