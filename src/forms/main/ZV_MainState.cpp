#include <algorithm>

#include <wx/statusbr.h>
#include <wx/toolbar.h>
#include <wx/utils.h>

#include "forms/main/ZV_Main.h"
#include "lang/TextNumbers.h"
#include "text/Numbers.h"
#include "ui/WxText.h"

// How `ZV_Main` shows the state of the session; updated at most once a frame.
namespace zek {
namespace {

enum class Panel { Connection, Progress, Sequence };

std::string ProgressText(const StatusPanels& status) {
  const std::string& text = status.Transfer.empty() ? status.Progress : status.Transfer;
  if (text.empty() || status.Waiting.empty()) return text + status.Waiting;
  return text + "  " + status.Waiting;
}

void SetPanel(wxStatusBar& bar, Panel panel, const wxString& text) {
  const auto field = static_cast<int>(panel);
  if (bar.GetStatusText(field) != text) bar.SetStatusText(text, field);
}

}  // namespace

void ZV_Main::FillTopics() {
  Combo_Topics->Clear();
  listed_.clear();
  wxArrayString texts;
  for (const std::int16_t index : proc_.topics.Listed(proc_.settings)) {
    listed_.push_back(index);
    texts.Add(ToWx(TopicText(proc_.topics[index])));
  }
  if (!texts.empty()) Combo_Topics->Append(texts);
  Combo_Topics->Show();
  ShowWelcome();
}

void ZV_Main::ShowState() {
  List_Output->ShowNew();
  ShowStatusBar();
  ShowTopic();
  EnableParts();
  ShowPointer();
}

void ZV_Main::ShowStatusBar() {
  const StatusPanels& status = proc_.status;
  wxStatusBar& bar = *GetStatusBar();
  SetPanel(bar, Panel::Connection,
           proc_.settings.LocalMode ? Label(text::kLocalModeShown) : ToWx(status.Connection));
  SetPanel(bar, Panel::Progress, ToWx(ProgressText(status)));
  SetPanel(bar, Panel::Sequence, ToWx(status.Sequence));
}

// Selects the connected topic, or the one that is being connected.
void ZV_Main::ShowTopic() {
  std::int16_t topic = proc_.connection.CurrentTopic;
  const std::string& pending = proc_.connection.PendingTopic;
  if (topic < 0 && !pending.empty()) topic = ToInt16(Val(pending)).value_or(-1);
  const auto found = std::find(listed_.begin(), listed_.end(), topic);
  const int item = found == listed_.end() ? wxNOT_FOUND : static_cast<int>(found - listed_.begin());
  if (Combo_Topics->GetSelection() != item) Combo_Topics->SetSelection(item);
}

void ZV_Main::EnableParts() {
  const bool idle = proc_.status.Busy == 0;
  const auto enable = [](wxWindow* window, bool on) {
    if (window->IsThisEnabled() != on) window->Enable(on);
  };
  enable(Text_Input, IsConnected() && idle);
  enable(Combo_Topics, idle && !proc_.settings.LocalMode);
  const auto enableItem = [this](wxMenu* menu, int id, bool on) {
    if (menu->IsEnabled(id) != on) menu->Enable(id, on);
    if (GetToolBar()->FindById(id) != nullptr && GetToolBar()->GetToolEnabled(id) != on) {
      GetToolBar()->EnableTool(id, on);
    }
  };
  enableItem(menuFile_, main_menu::Menu_Disconnect,
             idle && (IsConnected() || !proc_.connection.PendingTopic.empty()));
  enableItem(menuDebug_, main_menu::Menu_Debug_Clear, !proc_.log.Lines().empty());
}

void ZV_Main::ShowPointer() {
  const bool hourglass = proc_.status.Hourglass > 0 || proc_.status.Busy > 0;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass) {
    wxBeginBusyCursor();
  } else {
    wxEndBusyCursor();
  }
}

}  // namespace zek
