#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <wx/listctrl.h>

#include "app/ZV_Proc.h"
#include "catalogue/CopyStates.h"

namespace zek {

/// `List_Nodes`: shows of each node, for each of its catalogues, when it was fetched and whether
/// the local copy has unsent changes. A click on a heading sorts. The states are read from the disk
/// only for rows that are seen or sorted.
class NodeList final : public wxListView {
 public:
  NodeList(wxWindow* parent, const ZV_Proc& proc, CopyStates& states);

  /// Shows these nodes of the object tree, in the order that was chosen.
  void ShowPlaces(std::vector<std::size_t> places);

  /// Selects a node, or nothing if it is not shown.
  void SelectPlace(std::optional<std::size_t> place);

  /// Selects the first node as the user would.
  void SelectFirst();

  /// True while `ShowPlaces` or `SelectPlace` changes the selection: the user has not.
  bool IsChanging() const { return changing_; }

  std::optional<std::size_t> Selected() const;

 private:
  wxString OnGetItemText(long item, long column) const override;
  std::string TextOf(std::size_t place, long column) const;
  std::string NodeText(std::size_t place) const;
  void SortBy(int column);
  void Sort();
  void FitColumns();

  const ZV_Proc& proc_;
  CopyStates& states_;
  int sorted_ = -1;  // column; -1 is the order of the tree
  bool ascending_ = true;
  bool severalObjects_ = false;
  bool changing_ = false;
  std::vector<std::size_t> stated_;  // in the order of the tree
  std::vector<std::size_t> shown_;
};

}  // namespace zek
