#include <vector>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include "catalogue/CatalogueTitle.h"
#include "forms/ZV_Help.h"
#include "forms/browser/ZV_TSC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/ModalForm.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 10;
constexpr int kTimeColumns = 22;
constexpr int kLineColumns = 66;
constexpr int kLines = 16;

wxString TitleOf(const ZV_Proc& proc) {
  const Selection& node = proc.selection;
  const std::string& name =
      node.TscName.empty() ? proc.topics[node.CurrentObject].TopicName : node.TscName;
  return ToWx(proc.Text(text::kHistoryTitle) + " - " + name);
}

class HistoryForm final : public wxDialog {
 public:
  HistoryForm(wxWindow* parent, ZV_Proc& proc)
      : wxDialog(parent, wxID_ANY, TitleOf(proc), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, "ZV_TSCHistory"),
        proc_(proc) {
    for (const Catalogue catalogue : kShownCatalogues)
      if (proc.selection.Has(catalogue)) kinds_.push_back(catalogue);
    Build();
    Choice_Kind->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowKept(); });
    List_Kept->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowDifferences(); });
    Command_Restore->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { RestoreChosen(); });
    Command_SendBack->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SendBack(); });
    RememberPlacement(*this, "ZV_TSCHistory");
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageHistory);
    // Deferred until the form is visible; before that nothing can get the focus.
    CallAfter([this] {
      Raise();
      List_Kept->SetFocus();
      ShowKept();
    });
  }

  std::optional<Catalogue> toSendBack;  // what the user chose

 private:
  wxStaticText* Label(std::int32_t number) {
    return new wxStaticText(this, wxID_ANY, ToWx(proc_.Text(number)));
  }

  void Name(wxWindow& part, std::int32_t number) {
    SetAccessibleName(part, wxControl::RemoveMnemonics(ToWx(proc_.Text(number))));
  }

  void Build() {
    const int gap = FromDIP(kGap);
    auto* const head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(Label(text::kHistoryKind), 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
    Choice_Kind = new wxChoice(this, wxID_ANY);
    Choice_Kind->SetName("Choice_Kind");
    for (const Catalogue catalogue : kinds_) {
      Choice_Kind->Append(wxControl::RemoveMnemonics(ToWx(proc_.Text(KindTitle(catalogue)))));
    }
    Choice_Kind->SetSelection(0);
    head->Add(Choice_Kind, 1);

    auto* const left = new wxBoxSizer(wxVERTICAL);
    left->Add(Label(text::kHistoryKept), 0, wxBOTTOM, gap / 2);
    List_Kept = new wxListBox(this, wxID_ANY);
    List_Kept->SetName("List_Kept");
    left->Add(List_Kept, 1, wxEXPAND);

    auto* const right = new wxBoxSizer(wxVERTICAL);
    right->Add(Label(text::kHistoryDifferences), 0, wxBOTTOM, gap / 2);
    Text_Differences = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                      wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
    Text_Differences->SetName("Text_Differences");
    Text_Differences->SetFont(FixedFont());
    right->Add(Text_Differences, 1, wxEXPAND);

    const wxSize letter = Text_Differences->GetTextExtent("0");
    List_Kept->SetMinSize(wxSize(letter.x * kTimeColumns, -1));
    Text_Differences->SetMinSize(wxSize(letter.x * kLineColumns, letter.y * kLines));

    Name(*Choice_Kind, text::kHistoryKind);
    Name(*List_Kept, text::kHistoryKept);
    Name(*Text_Differences, text::kHistoryDifferences);
    auto* const both = new wxBoxSizer(wxHORIZONTAL);
    both->Add(left, 0, wxEXPAND | wxRIGHT, gap);
    both->Add(right, 1, wxEXPAND);

    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    Command_SendBack = new wxButton(this, wxID_ANY, ToWx(proc_.Text(text::kHistorySendBack)));
    Command_SendBack->SetName("Command_SendBack");
    commands->Add(Command_SendBack, 0, wxRIGHT, gap);
    commands->AddStretchSpacer();
    Command_Restore = new wxButton(this, wxID_ANY, ToWx(proc_.Text(text::kHistoryRestore)));
    Command_Restore->SetName("Command_Restore");
    commands->Add(Command_Restore, 0, wxRIGHT, gap);
    auto* const close = new wxButton(this, wxID_CANCEL, ToWx(proc_.Text(text::kBrowserClose)));
    commands->Add(close);
    SetEscapeId(wxID_CANCEL);

    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(head, 0, wxEXPAND | wxALL, gap);
    whole->Add(both, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
    whole->Add(commands, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
  }

  CatalogueId Chosen() const {
    return proc_.selection.Id(kinds_.at(static_cast<std::size_t>(Choice_Kind->GetSelection())));
  }

  // The catalogue is sent by the browser, which shows the transfer.
  void SendBack() {
    toSendBack = Chosen().catalogue;
    EndModal(wxID_OK);
  }

  // Selects the newest copy, the last state before the current one.
  void ShowKept() {
    const std::string before = proc_.catalogues.TimeOfBefore(Chosen());
    Command_SendBack->Enable(!before.empty() && !proc_.settings.ViewOnly &&
                             !proc_.settings.LocalMode);
    Command_SendBack->SetToolTip(ToWx(Message(proc_.Text(text::kHistorySendBackHint), {before})));
    kept_ = proc_.copies.HistoryOf(Chosen()).Kept();
    List_Kept->Clear();
    for (const KeptCopy& copy : kept_) List_Kept->Append(ToWx(copy.time));
    if (!kept_.empty()) List_Kept->SetSelection(0);
    ShowDifferences();
  }

  void ShowDifferences() {
    const int chosen = List_Kept->GetSelection();
    // Never disabled for a moment only: the button would lose the focus, and keys would go nowhere.
    Command_Restore->Enable(chosen != wxNOT_FOUND && !proc_.settings.ViewOnly);
    if (chosen == wxNOT_FOUND) {
      Text_Differences->SetValue(ToWx(proc_.Text(text::kHistoryEmpty)));
      return;
    }
    const wxWeakRef<HistoryForm> alive(this);
    auto differences =
        proc_.copies.CompareWith(Chosen(), kept_.at(static_cast<std::size_t>(chosen)));
    if (!alive) return;
    wxString text;
    // Offer an equal copy too: an erased copy and an empty one show no difference.
    Command_Restore->Enable(differences.has_value() && !proc_.settings.ViewOnly);
    if (!differences) {
      differences.emplace();
    } else if (differences->empty()) {
      text = ToWx(proc_.Text(text::kHistorySame));
    }
    for (std::string& line : *differences) {
      ShowControls(line);
      text += ToWx(line) + "\n";
    }
    Text_Differences->SetValue(text);
    Text_Differences->SetInsertionPoint(0);
  }

  void RestoreChosen() {
    const int chosen = List_Kept->GetSelection();
    if (chosen == wxNOT_FOUND) return;
    const KeptCopy copy = kept_.at(static_cast<std::size_t>(chosen));
    const wxWeakRef<HistoryForm> alive(this);
    Prompts& prompts = proc_.prompts;
    std::string question = Message(proc_.Text(text::kAskRestore), {copy.time});
    if (proc_.settings.HistoryCount > 0 && proc_.copies.Exists(Chosen())) {
      question += "\r\n\r\n" + proc_.Text(text::kRestoreKeeps);
    }
    if (!prompts.AskYesNo(Icon::Question, question, proc_.Text(text::kHistoryTitle))) {
      return;
    }
    if (!alive) return;
    const bool restored = proc_.copies.Restore(Chosen(), copy);
    if (restored)
      prompts.Show(Icon::Information, Message(proc_.Text(text::kRestored), {copy.time}));
    if (alive) ShowKept();
  }

  ZV_Proc& proc_;
  std::vector<Catalogue> kinds_;
  std::vector<KeptCopy> kept_;
  wxChoice* Choice_Kind = nullptr;
  wxListBox* List_Kept = nullptr;
  wxTextCtrl* Text_Differences = nullptr;
  wxButton* Command_Restore = nullptr;
  wxButton* Command_SendBack = nullptr;
};

}  // namespace

std::optional<Catalogue> ShowHistory(wxWindow* parent, ZV_Proc& proc) {
  ModalForm<HistoryForm> form(parent, proc);
  const auto* const closed = form.Show();
  return closed == nullptr ? std::nullopt : closed->toSendBack;
}

}  // namespace zek
