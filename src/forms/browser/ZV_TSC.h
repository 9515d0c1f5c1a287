#pragma once

#include <memory>

#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"
#include "catalogue/CopyStates.h"
#include "editors/FindingPlaces.h"
#include "export/BatchExport.h"
#include "forms/browser/ZV_TSCList.h"
#include "forms/browser/ZV_TSCTree.h"
#include "ui/InputBlock.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The browser's window. It is a frame with its own event loop, not a dialog, because dialogs have
/// no menu bar on some systems.
class ZV_TSC final : public wxFrame {
 public:
  ZV_TSC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, BatchExport& batch);
  ~ZV_TSC() override;

  /// Shows the form until it is closed. Afterwards the form is destroyed or about to be.
  void RunModal();

  /// Shows the progress of the transfer, the current wait, and the progress of a batch.
  void ShowStatus();

  /// Selects the node that a batch is exporting.
  void ShowNode(std::size_t place) { TreeView->SelectPlace(place); }

 private:
  void BuildMenus();
  void BuildToolbar();
  void BuildStatusBar();
  wxWindow* SearchRow();
  wxWindow* BatchRow();
  void BindEvents();
  void ShowTree();
  void ShowBusy(bool busy);
  void PlaceCancel();
  void UpdateMenu(wxMenu& menu) const;
  void UpdateActions();
  std::unique_ptr<wxMenu> TSCMenu() const;

  void ShowItems();
  void ShowByPlace(bool byPlace);
  void ShowList();
  void OnListed();
  void OnSearch();
  bool EndSearch();
  void DeleteInSearch();
  void ReadStatesAgain(const Selection* of = nullptr);
  void OnStatesTick();

  void OnSelected();
  void OnActivated(wxTreeEvent& event);
  void OnContextMenu(wxContextMenuEvent& event);
  void ShowContextMenu();
  void OnKey(wxKeyEvent& event);
  void OnClose(wxCloseEvent& event);
  void OnIconize(wxIconizeEvent& event);
  using ShowEditor = void (*)(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                              const CatalogueContent& content, const std::optional<EntryPlace>& at);
  /// Runs a transfer with the form blocked. Returns true if the form is to be closed, or is gone.
  bool Transfer(const std::function<void()>& transfer);
  void CancelLater();
  void TakeKeys();
  void Get(Catalogue catalogue, ShowEditor showEditor, const std::optional<EntryPlace>& at = {});
  void OnFindings();
  void Erase(Catalogue catalogue);
  void OnHistory();
  void WhatApplies();
  void OnSeveral();
  void OnReport();

  void StartBatch();
  void ToggleBatch(bool BatchKinds::*kind);
  void OnBatchTick();
  void FinishBatch();
  void ShowSummary();
  void EndBatch();
  void OnCancel();
  void ShowBatch();

  wxString Label(std::int32_t number, const char* key = "") const;

  ZV_Proc& proc_;
  WxTurn& turn_;
  BatchExport& batch_;
  CopyStates states_;
  ObjectTreeView* TreeView;
  NodeList* List_Nodes = nullptr;
  wxTextCtrl* Text_Search = nullptr;
  wxMenu* menuTSC_ = nullptr;
  wxMenu* menuBatch_ = nullptr;
  wxPanel* batchRow_ = nullptr;
  wxStaticText* batchText_ = nullptr;
  wxGauge* batchGauge_ = nullptr;
  wxButton* cancel_ = nullptr;
  bool fetching_ = false;  // a transfer begun here is running; an editor shows its own writes
  bool busy_ = false;      // the form is shown as busy
  int openMenus_ = 0;
  wxEventLoopBase* loop_ = nullptr;
  bool closing_ = false;                    // about to be destroyed
  std::unique_ptr<InputBlock> batchBlock_;  // exists while a batch runs
  WxTick Timer_Batch;
  WxTick Timer_States;        // finds the nodes to mark, some of them each time
  std::vector<bool> marked_;  // those with unsent changes, as far as they are found
};

/// The browser's menu items.
namespace browser {
enum Menu : int {
  Menu_Exit = wxID_HIGHEST + 100,
  Menu_ExpandAll,
  Menu_CollapseAll,
  Menu_GetWDC,
  Menu_GetSDC,
  Menu_GetOVC,
  Menu_EraseWDC,
  Menu_EraseSDC,
  Menu_EraseOVC,
  Menu_History,
  Menu_Findings,
  Menu_Batch_Run,
  Menu_Batch_GetWDC,
  Menu_Batch_GetSDC,
  Menu_Batch_GetOVC,
  Menu_Search,
  Menu_ByObject,
  Menu_ByPlace,
  Tool_ByPlace,
  Menu_Help,
  Menu_Keys,
  Menu_Applies,
  Menu_Several,
  Menu_Report,
};
}  // namespace browser

/// Opens `ZV_TSC`, the catalogue browser. It shows the objects and their time controls, fetches a
/// catalogue and opens its editor. Modal: returns when the browser is closed. It first selects the
/// object of the setting `StartTopic`, or the connected one. With `BatchMode` it starts the batch
/// export by itself and closes afterwards.
void ShowBrowser(wxWindow* parent, ZV_Proc& proc, WxTurn& turn);

/// Shows the earlier local copies of the selected node's catalogues and how each differs from the
/// current copy. Restores the one that the user chooses. Modal.
/// Returns the catalogue that is to be sent as it was before the last sending.
std::optional<Catalogue> ShowHistory(wxWindow* parent, ZV_Proc& proc);

}  // namespace zek
