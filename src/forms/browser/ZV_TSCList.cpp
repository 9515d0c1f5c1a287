#include "forms/browser/ZV_TSCList.h"

#include <algorithm>
#include <map>
#include <utility>

#include "catalogue/CatalogueTitle.h"
#include "catalogue/TreeItems.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "ui/AccessibleName.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr const char* kNoCopy = "-";

// Sets a flag while it exists.
class Flagged {
 public:
  explicit Flagged(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  Flagged(const Flagged&) = delete;
  Flagged& operator=(const Flagged&) = delete;
  ~Flagged() { flag_ = before_; }

 private:
  bool& flag_;
  bool before_;
};

}  // namespace

NodeList::NodeList(wxWindow* parent, const ZV_Proc& proc, CopyStates& states)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxBORDER_THEME),
      proc_(proc),
      states_(states) {
  SetName("List_Nodes");
  SetAccessibleName(*this, ToWx(proc.Text(text::kColumnControl)));
  SetToolTip(ToWx(proc.Text(text::kCopiesHint)));
  AppendColumn(ToWx(proc.Text(text::kColumnControl)));
  for (const Catalogue catalogue : kShownCatalogues)
    AppendColumn(ToWx(proc.Text(KindTitle(catalogue))));
  Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) { SortBy(event.GetColumn()); });
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    const int column = event.GetKeyCode() - '1';
    if (event.GetModifiers() != wxMOD_ALT || column < 0 || column >= GetColumnCount())
      return event.Skip();
    SortBy(column);
  });
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitColumns();
    event.Skip();
  });
}

void NodeList::SelectFirst() {
  if (shown_.empty()) return;
  Select(0);
  Focus(0);
}

void NodeList::ShowPlaces(std::vector<std::size_t> places) {
  stated_ = std::move(places);
  severalObjects_ = std::any_of(stated_.begin(), stated_.end(), [this](std::size_t place) {
    return proc_.tree[place].Object != proc_.tree[stated_.front()].Object;
  });
  Sort();
}

void NodeList::SelectPlace(std::optional<std::size_t> place) {
  if (place == Selected()) return;
  const Flagged changing(changing_);
  const auto found = place ? std::find(shown_.begin(), shown_.end(), *place) : shown_.end();
  const long selected = GetFirstSelected();
  if (selected >= 0) Select(selected, false);
  if (found == shown_.end()) return;
  const long item = static_cast<long>(found - shown_.begin());
  Select(item);
  Focus(item);
}

std::optional<std::size_t> NodeList::Selected() const {
  const long item = GetFirstSelected();
  if (item < 0 || static_cast<std::size_t>(item) >= shown_.size()) return std::nullopt;
  return shown_[static_cast<std::size_t>(item)];
}

wxString NodeList::OnGetItemText(long item, long column) const {
  if (item < 0 || static_cast<std::size_t>(item) >= shown_.size()) return {};
  return ToWx(TextOf(shown_[static_cast<std::size_t>(item)], column));
}

std::string NodeList::TextOf(std::size_t place, long column) const {
  if (place >= proc_.tree.size()) return {};
  if (column == 0) return NodeText(place);
  const Catalogue catalogue = kShownCatalogues.at(static_cast<std::size_t>(column) - 1);
  const CatalogueId id = SelectionOf(proc_.tree, proc_.topics, place).Id(catalogue);
  if (id.localFile.empty()) return {};
  const CopyState state = states_.Of(id);
  if (!state.exists) return kNoCopy;
  const std::string time = state.time.empty() ? proc_.Text(text::kCopyOfUnknownTime) : state.time;
  if (state.unsent) return Message(proc_.Text(text::kCopyUnsent), {time});
  return state.fewer ? Message(proc_.Text(text::kCopyFewer), {time}) : time;
}

// With the object's description if nodes of several objects are shown.
std::string NodeList::NodeText(std::size_t place) const {
  const TreeNode& node = proc_.tree[place];
  const std::string& object = proc_.topics[node.Object].Description;
  if (!node.IsTimeControl()) return Message(proc_.Text(text::kWholeObject), {object});
  const std::string name(LastPart(node.Text));
  return severalObjects_ ? name + ", " + object : name;
}

// The third time gives the order of the tree again.
void NodeList::SortBy(int column) {
  if (column < 0) return;
  const bool falling = !ascending_;
  ascending_ = column != sorted_;
  sorted_ = column == sorted_ && falling ? -1 : column;
  ShowSortIndicator(sorted_, ascending_);
  Sort();
}

void NodeList::Sort() {
  const std::optional<std::size_t> selected = Selected();
  shown_ = stated_;
  if (sorted_ >= 0) {
    std::map<std::size_t, std::string> keys;
    for (const std::size_t place : shown_) keys[place] = SortKey(TextOf(place, sorted_));
    std::stable_sort(shown_.begin(), shown_.end(), [&](std::size_t one, std::size_t other) {
      return ascending_ ? keys[one] < keys[other] : keys[other] < keys[one];
    });
  }
  const Flagged changing(changing_);
  const long before = GetFirstSelected();
  if (before >= 0) Select(before, false);
  SetItemCount(static_cast<long>(shown_.size()));
  SelectPlace(selected);
  Refresh();
}

// The times have the width that they need, the nodes what is left.
void NodeList::FitColumns() {
  const std::string longest = Message(proc_.Text(text::kCopyUnsent), {"2026-11-22 08:30"}) + "  ";
  const int time = GetTextExtent(ToWx(longest)).x;
  const int node =
      std::max(time, GetClientSize().x - time * static_cast<int>(kShownCatalogues.size()));
  for (int column = 0; column < GetColumnCount(); ++column)
    SetColumnWidth(column, column == 0 ? node : time);
}

}  // namespace zek
