#include "forms/browser/ZV_TSC.h"

#include <algorithm>

#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/toolbar.h>
#include <wx/utils.h>
#include <wx/weakref.h>

#include "app/StartSession.h"
#include "forms/CancelTransfer.h"
#include "forms/ModeStrip.h"
#include "forms/StatusChain.h"
#include "forms/ZV_Applies.h"
#include "forms/ZV_Help.h"
#include "forms/calendar/ZV_SDC.h"
#include "forms/exception/ZV_OVC.h"
#include "forms/several/ZV_Several.h"
#include "forms/weekday/ZV_WDC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/Forms.h"
#include "ui/InputBlock.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {

using namespace browser;

namespace {
constexpr int kWidth = 780;
constexpr int kHeight = 560;
constexpr int kSmallestWidth = 380;
constexpr int kSmallestHeight = 520;
constexpr int kTreeShare = 3;
constexpr int kListShare = 2;
constexpr int kLowest = 130;  // a few rows; a lower list has no room for its scroll bar
constexpr int kListGap = 4;

// A click on the disabled window below must not bring it over the browser and its editors.
long FloatOn(const wxWindow* parent) { return parent == nullptr ? 0 : wxFRAME_FLOAT_ON_PARENT; }

}  // namespace

ZV_TSC::ZV_TSC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, BatchExport& batch)
    : wxFrame(parent, wxID_ANY, ToWx(proc.Text(text::kBrowserTitle)), wxDefaultPosition,
              wxDefaultSize, wxDEFAULT_FRAME_STYLE | FloatOn(parent)),
      proc_(proc),
      turn_(turn),
      batch_(batch),
      states_(proc.copies, proc.records),
      TreeView(new ObjectTreeView(this)),
      Timer_Batch([this] { OnBatchTick(); }),
      Timer_States([this] { OnStatesTick(); }) {
  BuildMenus();
  BuildToolbar();
  BuildStatusBar();
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  if (wxWindow* const strip = NewModeStrip(this, proc)) whole->Add(strip, 0, wxEXPAND);
  whole->Add(SearchRow(), 0, wxEXPAND);
  whole->Add(TreeView, kTreeShare, wxEXPAND);
  whole->Add(List_Nodes = new NodeList(this, proc, states_), kListShare, wxEXPAND | wxTOP,
             FromDIP(kListGap));
  whole->Add(BatchRow(), 0, wxEXPAND);
  for (wxWindow* const part : std::initializer_list<wxWindow*>{TreeView, List_Nodes})
    part->SetMinSize({-1, FromDIP(kLowest)});
  SetSizer(whole);
  SetMinSize(FromDIP(wxSize(kSmallestWidth, kSmallestHeight)));
  SetSize(FromDIP(wxSize(kWidth, kHeight)));
  SetIcons(ProgramIcons());
  RememberPlacement(*this, "ZV_TSC");
  if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
  BindEvents();
}

ZV_TSC::~ZV_TSC() {
  if (loop_ != nullptr) loop_->ScheduleExit();
}

void ZV_TSC::BindEvents() {
  const auto onMenu = [this](int id, auto action) {
    Bind(
        wxEVT_MENU, [action](wxCommandEvent&) { action(); }, id);
  };
  onMenu(Menu_Exit, [this] { Close(); });
  onMenu(Menu_ExpandAll, [this] { TreeView->ExpandObjects(); });
  onMenu(Menu_CollapseAll, [this] { TreeView->CollapseObjects(); });
  onMenu(Menu_GetWDC, [this] { Get(Catalogue::Wdc, ShowWeekdayForm); });
  onMenu(Menu_GetSDC, [this] { Get(Catalogue::Sdc, ShowCalendarForm); });
  onMenu(Menu_GetOVC, [this] { Get(Catalogue::Ovc, ShowExceptionForm); });
  onMenu(Menu_EraseWDC, [this] { Erase(Catalogue::Wdc); });
  onMenu(Menu_EraseSDC, [this] { Erase(Catalogue::Sdc); });
  onMenu(Menu_EraseOVC, [this] { Erase(Catalogue::Ovc); });
  onMenu(Menu_History, [this] { OnHistory(); });
  onMenu(Menu_Findings, [this] { OnFindings(); });
  onMenu(Menu_Applies, [this] { WhatApplies(); });
  onMenu(Menu_Several, [this] { OnSeveral(); });
  onMenu(Menu_Report, [this] { OnReport(); });
  onMenu(Menu_Batch_Run, [this] { StartBatch(); });
  onMenu(Menu_Batch_GetWDC, [this] { ToggleBatch(&BatchKinds::WDC); });
  onMenu(Menu_Batch_GetSDC, [this] { ToggleBatch(&BatchKinds::SDC); });
  onMenu(Menu_Batch_GetOVC, [this] { ToggleBatch(&BatchKinds::OVC); });
  onMenu(Menu_Search, [this] {
    Text_Search->SetFocus();
    Text_Search->SelectAll();
  });
  onMenu(Menu_Help, [this] { ShowHelp(this, proc_); });
  onMenu(Menu_Keys, [this] { ShowHelp(this, proc_, kHelpPageKeys); });
  onMenu(Menu_ByObject, [this] { ShowByPlace(false); });
  onMenu(Menu_ByPlace, [this] { ShowByPlace(true); });
  onMenu(Tool_ByPlace, [this] { ShowByPlace(GetToolBar()->GetToolState(Tool_ByPlace)); });
  Text_Search->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { OnSearch(); });
  Text_Search->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { List_Nodes->SetFocus(); });
  List_Nodes->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { OnListed(); });
  List_Nodes->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                   [this](wxListEvent&) { Get(Catalogue::Wdc, ShowWeekdayForm); });
  TreeView->Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent&) { OnSelected(); });
  TreeView->Bind(wxEVT_TREE_ITEM_ACTIVATED, &ZV_TSC::OnActivated, this);
  TreeView->Bind(wxEVT_TREE_ITEM_MENU, [this](wxTreeEvent& event) {
    TreeView->SelectItem(event.GetItem());
    ShowContextMenu();
  });
  TreeView->Bind(wxEVT_CONTEXT_MENU, &ZV_TSC::OnContextMenu, this);
  cancel_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnCancel(); });
  GetStatusBar()->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    PlaceCancel();
    event.Skip();
  });
#ifdef __WXGTK__
  // On Windows a menu takes its keys, and an accelerator opens one without closing it.
  Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
    ++openMenus_;
    event.Skip();
  });
  Bind(wxEVT_MENU_CLOSE, [this](wxMenuEvent& event) {
    openMenus_ = std::max(0, openMenus_ - 1);
    event.Skip();
  });
#endif
  Bind(wxEVT_CHAR_HOOK, &ZV_TSC::OnKey, this);
  Bind(wxEVT_CLOSE_WINDOW, &ZV_TSC::OnClose, this);
  Bind(wxEVT_ICONIZE, &ZV_TSC::OnIconize, this);
}

void ZV_TSC::RunModal() {
  const wxWeakRef<ZV_TSC> alive(this);
  wxGUIEventLoop loop;
  loop_ = &loop;
  // Enable the windows below before this one closes, so that the system activates one of them.
  {
    const wxWindowDisabler onlyThis(this);
    Show();
    Raise();
    // Inside the loop, so that messages about the settings appear above the visible form.
    CallAfter([this] { ShowTree(); });
    loop.Run();
  }
  if (!alive) return;
  loop_ = nullptr;
  EndBatch();
  // The session may end before the toolkit deletes the form.
  Timer_States.Stop();
  closing_ = true;
  List_Nodes->ShowPlaces({});
  Destroy();
}

void ZV_TSC::ShowTree() {
  const wxWeakRef<ZV_TSC> alive(this);
  LoadTree(proc_);
  if (!alive) return;
  ShowItems();
  OnSelected();
  TreeView->SetFocus();
  const std::string& wanted = proc_.settings.StartTopic;
  std::optional<std::size_t> place;
  if (!wanted.empty()) {
    place = FindNode(proc_.tree, proc_.topics, wanted);
  } else if (proc_.topics.Has(proc_.connection.CurrentTopic)) {
    place =
        FindNode(proc_.tree, proc_.topics, proc_.topics[proc_.connection.CurrentTopic].TopicName);
  }
  // A tree without a selection ignores the arrow keys.
  if (!place && !proc_.tree.empty()) place = 0;
  if (place) TreeView->SelectPlace(*place);
  if (!proc_.settings.BatchMode) {
    if (HasOpenPlan(proc_)) OnSeveral();
    return;
  }
  proc_.batch.Kinds = {};
  StartBatch();
}

void ZV_TSC::OnSelected() {
  const std::optional<std::size_t> place = TreeView->Selected();
  if (place) SelectNode(proc_, *place);
  UpdateActions();
  if (!busy_ && Text_Search->IsEmpty()) ShowList();
  List_Nodes->SelectPlace(place);
}

void ZV_TSC::OnActivated(wxTreeEvent& event) {
  const std::optional<std::size_t> place = TreeView->PlaceOf(event.GetItem());
  if (place && proc_.tree.at(*place).IsTimeControl()) {
    Get(Catalogue::Wdc, ShowWeekdayForm);
  } else {
    TreeView->Toggle(event.GetItem());
  }
}

// Handles Shift+F10; the mouse causes wxEVT_TREE_ITEM_MENU instead.
void ZV_TSC::OnContextMenu(wxContextMenuEvent& event) {
  if (event.GetPosition() == wxDefaultPosition && TreeView->Selected()) {
    ShowContextMenu();
  } else {
    event.Skip();
  }
}

void ZV_TSC::ShowContextMenu() {
  if (busy_) return;
  const std::unique_ptr<wxMenu> menu = TSCMenu();
  UpdateMenu(*menu);
  TreeView->PopupMenu(menu.get(), TreeView->MenuPlace());
}

// Some systems offer the Escape that closes a menu to the form as well.
void ZV_TSC::OnKey(wxKeyEvent& event) {
  if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers() && openMenus_ == 0) {
    if (!EndSearch()) Close();
  } else if (event.GetKeyCode() == WXK_DELETE && Text_Search->HasFocus()) {
    DeleteInSearch();  // the menu would take the key and erase a local copy
  } else {
    event.Skip();
  }
}

// A handler of the form may still be running, so `RunModal` destroys it after the loop ends.
void ZV_TSC::OnClose(wxCloseEvent& /*event*/) {
  closing_ = true;
  if (busy_) OnCancel();  // the end of the user's session passes the input block
  if (loop_ != nullptr) loop_->ScheduleExit();
}

void ZV_TSC::OnIconize(wxIconizeEvent& event) {
  if (event.IsIconized() && proc_.settings.PreventMinimize) CallAfter([this] { Restore(); });
  event.Skip();
}

bool ZV_TSC::Transfer(const std::function<void()>& transfer) {
  const wxWeakRef<ZV_TSC> alive(this);
  fetching_ = true;
  const InputBlock block(
      [alive] {
        if (alive) alive->CancelLater();
      },
      cancel_);
  transfer();
  if (!alive) return true;
  fetching_ = false;
  ShowStatus();
  return block.CloseRequested() || turn_.Quitting() || closing_;
}

// The question must not run inside the handler of a key.
void ZV_TSC::CancelLater() {
  CallAfter([&proc = proc_] { CancelTransfer(proc); });
}

void ZV_TSC::Get(Catalogue catalogue, ShowEditor showEditor, const std::optional<EntryPlace>& at) {
  if (busy_ || !TreeView->Selected() || !proc_.selection.Has(catalogue)) return;
  const wxWeakRef<ZV_TSC> alive(this);
  const Selection of = proc_.selection;
  std::optional<CatalogueContent> content;
  const bool close = Transfer([&proc = proc_, &content, catalogue] {
    content = proc.catalogues.GetCatalogue(proc.selection.Id(catalogue));
  });
  if (!alive) return;
  ReadStatesAgain(&of);
  if (close) {
    Close();
  } else if (content) {
    showEditor(this, proc_, turn_, *content, at);
    if (!alive) return;
    ReadStatesAgain(&of);
    TakeKeys();
  }
}

// The system may leave the keys with nobody when a form above closes.
void ZV_TSC::TakeKeys() {
  if (closing_) return static_cast<void>(Close());  // a form above took the end of the event loop
  Raise();
  TreeView->SetFocus();
  UpdateMenu(*menuTSC_);
}

void ZV_TSC::Erase(Catalogue catalogue) {
  const CatalogueId id = proc_.selection.Id(catalogue);
  if (busy_ || proc_.settings.ViewOnly || !proc_.copies.Exists(id)) return;
  const wxWeakRef<ZV_TSC> alive(this);
  const std::string question = Message(proc_.Text(text::kAskErase), {id.localFile});
  if (!proc_.prompts.AskYesNo(Icon::Question, question, proc_.Text(text::kAskEraseTitle))) {
    return;
  }
  proc_.copies.Erase(id);
  if (alive) ReadStatesAgain(&proc_.selection);
}

void ZV_TSC::OnHistory() {
  if (busy_ || !TreeView->Selected()) return;
  const wxWeakRef<ZV_TSC> alive(this);
  const Selection of = proc_.selection;
  const std::optional<Catalogue> sendBack = ShowHistory(this, proc_);
  if (!alive) return;
  if (sendBack) {
    const CatalogueId id = of.Id(*sendBack);
    const bool close =
        Transfer([&proc = proc_, id] { static_cast<void>(proc.catalogues.SendBack(id)); });
    if (!alive) return;
    if (close) return static_cast<void>(Close());
  }
  ReadStatesAgain(&of);
  TakeKeys();
}

void ZV_TSC::WhatApplies() {
  if (busy_ || !TreeView->Selected() || proc_.selection.TscName.empty()) return;
  const wxWeakRef<ZV_TSC> alive(this);
  const Selection of = proc_.selection;
  ControlCatalogues catalogues(proc_);
  bool read = false;
  const bool close = Transfer([&] { read = catalogues.Read(); });
  if (!alive) return;
  ReadStatesAgain(&of);
  if (close) return static_cast<void>(Close());
  if (!read) return;
  ShowApplies(this, proc_, AppliesOf(proc_, catalogues, catalogues.Together(), std::nullopt));
  if (alive) TakeKeys();
}

void ZV_TSC::OnSeveral() {
  if (busy_) return;
  const wxWeakRef<ZV_TSC> alive(this);
  ShowSeveral(this, proc_, turn_, TreeView->Selected());
  if (!alive) return;
  if (turn_.Quitting()) return static_cast<void>(Close());
  ReadStatesAgain();
  TakeKeys();
}

void ShowBrowser(wxWindow* parent, ZV_Proc& proc, WxTurn& turn) {
  BatchExport batch(proc);  // outlives the form, which may be destroyed during a fetch
  const wxWeakRef<ZV_TSC> form(new ZV_TSC(parent, proc, turn, batch));
  batch.Selected = [form](std::size_t node) {
    if (form) form->ShowNode(node);
  };
  const StatusChain chain(proc.status, [form] {
    if (form) form->ShowStatus();
  });
  const wxWeakRef<wxWindow> below(parent);
  form->RunModal();
  if (below) below->Raise();
}

}  // namespace zek
