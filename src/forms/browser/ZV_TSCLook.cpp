#include <array>
#include <initializer_list>

#include <wx/statusbr.h>
#include <wx/toolbar.h>

#include "forms/browser/ZV_TSC.h"
#include "lang/TextNumbers.h"
#include "ui/WxText.h"

// The parts of the browser beside its tree: menus, status bar, and its look during a transfer.
namespace zek {

using namespace browser;

namespace {
constexpr int kWaitingPanel = 0;
constexpr int kTransferPanel = 1;
constexpr int kCancelPanel = 2;
constexpr int kCancelMargin = 2;
constexpr int kCancelPadding = 12;
}  // namespace

wxString ZV_TSC::Label(std::int32_t number, const char* key) const {
  const wxString label = ToWx(proc_.Text(number));
  return *key == '\0' ? label : label + "\t" + key;
}

std::unique_ptr<wxMenu> ZV_TSC::TSCMenu() const {
  auto menu = std::make_unique<wxMenu>();
  menu->Append(Menu_ExpandAll, Label(text::kBrowserExpandAll));
  menu->Append(Menu_CollapseAll, Label(text::kBrowserCollapseAll));
  menu->AppendSeparator();
  menu->Append(Menu_GetWDC, Label(text::kBrowserGetWDC, "F5"));
  menu->Append(Menu_GetSDC, Label(text::kBrowserGetSDC, "F6"));
  menu->Append(Menu_GetOVC, Label(text::kBrowserGetOVC, "F7"));
  menu->Append(Menu_Applies, Label(text::kApplies, "F9"));
  menu->AppendSeparator();
  menu->Append(Menu_EraseWDC, Label(text::kBrowserEraseWDC, "Del"));
  menu->Append(Menu_EraseSDC, Label(text::kBrowserEraseSDC));
  menu->Append(Menu_EraseOVC, Label(text::kBrowserEraseOVC));
  menu->Append(Menu_History, Label(text::kHistoryMenu, "F8"));
  menu->AppendSeparator();
  menu->Append(Menu_Findings, Label(text::kFindingsPlantMenu, "Ctrl+G"));
  return menu;
}

void ZV_TSC::BuildMenus() {
  auto* const file = new wxMenu;
  file->Append(Menu_Exit, Label(text::kBrowserClose, "Alt+F4"));
  menuTSC_ = TSCMenu().release();
  menuTSC_->Append(Menu_Several, Label(text::kSeveralMenu));
  menuTSC_->Append(Menu_Report, Label(text::kReportMenu));
  menuBatch_ = new wxMenu;
  menuBatch_->Append(Menu_Batch_Run, Label(text::kMenuBatchRun));
  menuBatch_->AppendSeparator();
  const BatchKinds& kinds = proc_.batch.Kinds;
  menuBatch_->AppendCheckItem(Menu_Batch_GetWDC, Label(text::kMenuBatchWDC))->Check(kinds.WDC);
  menuBatch_->AppendCheckItem(Menu_Batch_GetSDC, Label(text::kMenuBatchSDC))->Check(kinds.SDC);
  menuBatch_->AppendCheckItem(Menu_Batch_GetOVC, Label(text::kMenuBatchOVC))->Check(kinds.OVC);
  auto* const view = new wxMenu;
  view->Append(Menu_Search, Label(text::kSearchMenu, "Ctrl+F"));
  view->AppendSeparator();
  view->AppendRadioItem(Menu_ByObject, Label(text::kViewByObject, "Ctrl+1"));
  view->AppendRadioItem(Menu_ByPlace, Label(text::kViewByPlace, "Ctrl+2"));
  auto* const bar = new wxMenuBar;
  bar->Append(file, Label(text::kMenuFile));
  bar->Append(menuTSC_, Label(text::kBrowserTSC));
  bar->Append(view, Label(text::kMenuView));
  bar->Append(menuBatch_, Label(text::kMenuBatch));
  auto* const help = new wxMenu;
  help->Append(Menu_Help, Label(text::kHelpContents, "F1"));
  help->Append(Menu_Keys, Label(text::kHelpKeys));
  bar->Append(help, Label(text::kMenuHelp));
  SetMenuBar(bar);
}

void ZV_TSC::UpdateMenu(wxMenu& menu) const {
  const bool selected = TreeView->Selected().has_value();
  const auto erasable = [&](Catalogue catalogue) {
    return selected && !proc_.settings.ViewOnly &&
           proc_.copies.Exists(proc_.selection.Id(catalogue));
  };
  const auto exists = [&](Catalogue catalogue) {
    return selected && proc_.selection.Has(catalogue);
  };
  menu.Enable(Menu_GetWDC, exists(Catalogue::Wdc));
  menu.Enable(Menu_GetSDC, exists(Catalogue::Sdc));
  menu.Enable(Menu_GetOVC, exists(Catalogue::Ovc));
  menu.Enable(Menu_EraseWDC, erasable(Catalogue::Wdc));
  menu.Enable(Menu_EraseSDC, erasable(Catalogue::Sdc));
  menu.Enable(Menu_EraseOVC, erasable(Catalogue::Ovc));
  menu.Enable(Menu_History, selected);
  menu.Enable(Menu_Applies, selected && !proc_.selection.TscName.empty());
}

void ZV_TSC::UpdateActions() {
  UpdateMenu(*menuTSC_);
  menuBatch_->Enable(Menu_Batch_Run, proc_.batch.Kinds.Count() > 0);
  wxToolBar& bar = *GetToolBar();
  for (const int action : {Menu_GetWDC, Menu_GetSDC, Menu_GetOVC, Menu_Applies, Menu_History})
    bar.EnableTool(action, menuTSC_->IsEnabled(action));
  bar.EnableTool(Menu_Batch_Run, menuBatch_->IsEnabled(Menu_Batch_Run));
}

void ZV_TSC::BuildStatusBar() {
  wxStatusBar* const bar = CreateStatusBar(kCancelPanel + 1);
  bar->SetName("StatusBar");
  cancel_ = new wxButton(bar, wxID_CANCEL, Label(text::kBatchCancel), wxDefaultPosition,
                         wxDefaultSize, wxBU_EXACTFIT);
  wxSize button = cancel_->GetBestSize();
  cancel_->SetLabel(Label(text::kCancelTransfer));
  button.IncTo(cancel_->GetBestSize());  // wide enough for either label
  const std::array widths{-1, -3, button.x + 2 * FromDIP(kCancelPadding)};
  bar->SetStatusWidths(static_cast<int>(widths.size()), widths.data());
  bar->SetMinHeight(button.y + 2 * FromDIP(kCancelMargin));
  cancel_->Hide();
}

void ZV_TSC::PlaceCancel() {
  wxRect field;
  if (GetStatusBar()->GetFieldRect(kCancelPanel, field)) cancel_->SetSize(field);
}

void ZV_TSC::ShowStatus() {
  SetStatusText(ToWx(proc_.status.Waiting), kWaitingPanel);
  const bool quiet = proc_.status.Transfer.empty() && proc_.status.Busy == 0;
  SetStatusText(ToWx(quiet ? proc_.status.Outcome : proc_.status.Transfer), kTransferPanel);
  const bool busy = batch_.IsRunning() || (fetching_ && proc_.status.Busy > 0);
  if (busy_ != busy) ShowBusy(busy);
  ShowBatch();
}

void ZV_TSC::ShowBusy(bool busy) {
  busy_ = busy;
  cancel_->SetLabel(Label(batch_.IsRunning() ? text::kBatchCancel : text::kCancelTransfer));
  cancel_->Enable();
  cancel_->Show(busy);
  PlaceCancel();
  // Move the focus before disabling the tree; otherwise Escape would not arrive.
  if (busy) cancel_->SetFocus();
  for (wxWindow* const part : std::initializer_list<wxWindow*>{TreeView, List_Nodes, Text_Search})
    part->Enable(!busy);
  GetToolBar()->Enable(!busy);
  for (std::size_t i = 0; i < GetMenuBar()->GetMenuCount(); ++i) GetMenuBar()->EnableTop(i, !busy);
  SetCursor(busy ? wxCursor(wxCURSOR_WAIT) : wxNullCursor);
  if (!busy) TreeView->SetFocus();
}

}  // namespace zek
