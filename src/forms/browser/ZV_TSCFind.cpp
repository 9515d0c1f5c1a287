#include <array>
#include <string>
#include <utility>

#include <wx/config.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/toolbar.h>

#include "forms/browser/ZV_TSC.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/WxText.h"

// How a node is found in the browser: the two views of the tree, the search, the list of the
// catalogues below the tree, and the marks of unsent changes.
namespace zek {

using namespace browser;

namespace {
constexpr int kGap = 6;
constexpr int kTimerStates = 20;  // milliseconds
constexpr long kSlice = 15;       // milliseconds of reading in one tick
constexpr std::array kCatalogues{Catalogue::Wdc, Catalogue::Sdc, Catalogue::Ovc};
constexpr const char* kByPlaceKey = "/Browser/ByPlace";
}  // namespace

wxWindow* ZV_TSC::SearchRow() {
  auto* const panel = new wxPanel(this);
  auto* const label = new wxStaticText(panel, wxID_ANY, Label(text::kSearchLabel));
  Text_Search =
      new wxTextCtrl(panel, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
  Text_Search->SetName("Text_Search");
  SetAccessibleName(*Text_Search, wxControl::RemoveMnemonics(Label(text::kSearchLabel)));
  const int gap = FromDIP(kGap);
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(label, 0, wxALIGN_CENTER_VERTICAL | wxALL, gap);
  row->Add(Text_Search, 1, wxTOP | wxRIGHT | wxBOTTOM, gap);
  panel->SetSizer(row);
  return panel;
}

void ZV_TSC::ShowItems() {
  const bool byPlace = wxConfigBase::Get()->ReadBool(kByPlaceKey, false);
  GetMenuBar()->Check(byPlace ? Menu_ByPlace : Menu_ByObject, true);
  GetToolBar()->ToggleTool(Tool_ByPlace, byPlace);
  TreeView->ShowItems(byPlace
                          ? ItemsByPlace(proc_.tree, proc_.topics, proc_.Text(text::kWholeObject))
                          : ItemsByObject(proc_.tree),
                      proc_.tree);
  ReadStatesAgain();
}

void ZV_TSC::ShowByPlace(bool byPlace) {
  if (busy_) return;
  const std::optional<std::size_t> place = TreeView->Selected();
  wxConfigBase::Get()->Write(kByPlaceKey, byPlace);
  ShowItems();
  if (place) TreeView->SelectPlace(*place);
  OnSelected();
}

// What is below the selection, or what the search found.
void ZV_TSC::ShowList() {
  List_Nodes->ShowPlaces(Text_Search->IsEmpty()
                             ? TreeView->PlacesAround()
                             : NodesWith(proc_.tree, FromWx(Text_Search->GetValue())));
}

void ZV_TSC::OnListed() {
  if (List_Nodes->IsChanging()) return;
  const std::optional<std::size_t> place = List_Nodes->Selected();
  if (place && place != TreeView->Selected()) TreeView->SelectPlace(*place);
}

// Selects the first node that was found, so that Enter and the function keys work at once.
void ZV_TSC::OnSearch() {
  ShowList();
  const std::optional<std::size_t> selected = TreeView->Selected();
  List_Nodes->SelectPlace(selected);
  if (!Text_Search->IsEmpty() && !List_Nodes->Selected()) List_Nodes->SelectFirst();
}

// Returns false if there was no search to end.
bool ZV_TSC::EndSearch() {
  if (Text_Search->IsEmpty() || busy_) return false;
  Text_Search->Clear();
  TreeView->SetFocus();
  return true;
}

void ZV_TSC::DeleteInSearch() {
  long from = 0;
  long to = 0;
  Text_Search->GetSelection(&from, &to);
  Text_Search->Remove(from, from == to ? to + 1 : to);
}

// Of the copies of that selection, or of all.
void ZV_TSC::ReadStatesAgain(const Selection* of) {
  if (of == nullptr) states_.ForgetAll();
  for (const Catalogue catalogue : kCatalogues)
    if (of != nullptr) states_.Forget(of->LocalFiles[catalogue]);
  UpdateActions();
  ShowList();
  List_Nodes->SelectPlace(TreeView->Selected());
  marked_.clear();
  Timer_States.Begin(kTimerStates);
}

void ZV_TSC::OnStatesTick() {
  if (closing_) return;
  const wxStopWatch watch;
  while (marked_.size() < proc_.tree.size() && watch.Time() < kSlice) {
    const Selection node = SelectionOf(proc_.tree, proc_.topics, marked_.size());
    bool differs = false;
    for (const Catalogue catalogue : kCatalogues) {
      const CopyState state = states_.Of(node.Id(catalogue));
      differs = differs || state.unsent || state.fewer;
    }
    marked_.push_back(differs);
  }
  if (marked_.size() < proc_.tree.size()) return;
  Timer_States.Stop();
  TreeView->MarkNodes(marked_);
}

}  // namespace zek
