#include "forms/FindingsForm.h"

#include <array>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "findings/FindingKinds.h"
#include "findings/SeverityText.h"
#include "forms/ZV_Help.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "ui/AccessibleName.h"
#include "ui/Forms.h"
#include "ui/ModalForm.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kWidth = 760;
constexpr int kHeight = 370;
constexpr int kLines = 2;  // of the chosen finding
constexpr int kTextColumn = 3;

struct Column {
  std::int32_t heading;
  int width;  // in characters
};
constexpr std::array<Column, 5> kColumns{{{text::kColumnControl, 18},
                                          {text::kFindingSeverity, 12},
                                          {text::kFindingPlace, 20},
                                          {text::kFindingText, 60},
                                          {text::kFindingCode, 20}}};

class FindingsForm final : public wxDialog {
 public:
  FindingsForm(wxWindow* parent, ZV_Proc& proc, const std::string& title,
               const FindingSource& source, std::size_t marked)
      : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, "ZV_Findings"),
        proc_(proc),
        source_(source),
        marked_(marked) {
    Build();
    List_Findings->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { GoTo(); });
    List_Findings->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
      goTo_->Enable();
      whole_->ChangeValue(List_Findings->GetItemText(event.GetIndex(), kTextColumn));
    });
    goTo_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { GoTo(); });
    SetExtraStyle(GetExtraStyle() | wxWS_EX_PROCESS_IDLE);
    Bind(wxEVT_IDLE, &FindingsForm::OnIdle, this);
    RememberPlacement(*this, "ZV_Findings");
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageApplies);
    // Deferred until the form is visible; before that nothing can get the focus.
    CallAfter([this] {
      Raise();
      List_Findings->SetFocus();
    });
  }

  std::optional<std::size_t> chosen;

 private:
  wxString Text(std::int32_t number) const { return ToWx(proc_.Text(number)); }

  void Build() {
    const int gap = FromDIP(kGap);
    remark_ = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    remark_->SetName("Label_Remark");
    List_Findings = new wxListView(this, wxID_ANY, wxDefaultPosition,
                                   FromDIP(wxSize(kWidth, kHeight)), wxLC_REPORT | wxLC_SINGLE_SEL);
    List_Findings->SetName("List_Findings");
    SetAccessibleName(*List_Findings, Text(text::kFindingsTitle));
    const int letter = GetTextExtent("n").x;
    for (const Column& column : kColumns)
      List_Findings->AppendColumn(Text(column.heading), wxLIST_FORMAT_LEFT, column.width * letter);
    if (!source_.stop) List_Findings->SetColumnWidth(0, 0);  // one node
    whole_ = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP);
    whole_->SetName("Text_Finding");
    SetAccessibleName(*whole_, Text(text::kFindingsTitle));
    whole_->SetMinSize({-1, (GetCharHeight() + 2) * kLines});
    auto* const assumed = new wxStaticText(this, wxID_ANY, Text(text::kRuleAssumed),
                                           wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    goTo_ = new wxButton(this, wxID_ANY, Text(text::kFindingsGoTo));
    goTo_->SetName("Command_GoTo");
    goTo_->Disable();
    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    commands->Add(goTo_, 0, wxRIGHT, gap);
    if (source_.stop) commands->Add(NewStop(), 0, wxRIGHT, gap);
    commands->AddStretchSpacer();
    commands->Add(new wxButton(this, wxID_CANCEL, Text(text::kBrowserClose)));
    SetEscapeId(wxID_CANCEL);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(remark_, 0, wxEXPAND | wxALL, gap);
    whole->Add(List_Findings, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
    whole->Add(whole_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    whole->Add(assumed, 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, gap);
    whole->Add(commands, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
  }

  wxButton* NewStop() {
    stop_ = new wxButton(this, wxID_ANY, Text(text::kFindingsStop));
    stop_->SetName("Command_Stop");
    stop_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
      source_.stop();
      stopped_ = searching_;
      List_Findings->SetFocus();
    });
    return stop_;
  }

  void OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (!searching_ || !IsShown()) return;  // once it is closed, the source is gone
    searching_ = source_.step();
    for (const FindingRow& row : source_.rowsFrom(shown_)) AddRow(row);
    ShowRemark();
    if (!searching_ && stop_ != nullptr) stop_->Disable();
    if (searching_) event.RequestMore();
  }

  void AddRow(const FindingRow& row) {
    const FindingInfo& info = InfoOf(row.finding.kind);
    std::string said = row.finding.text;
    ShowControls(said);
    const auto at = static_cast<long>(shown_++);
    List_Findings->InsertItem(at, ToWx(row.node));
    List_Findings->SetItem(at, 1, Text(SeverityText(info.severity)));
    List_Findings->SetItem(at, 2, ToWx(row.finding.place));
    List_Findings->SetItem(at, kTextColumn, ToWx(said));
    List_Findings->SetItem(at, 4, ToWx(std::string(info.code)));
    if (shown_ != marked_ + 1 && shown_ != 1) return;
    List_Findings->Focus(at);
    List_Findings->Select(at);
  }

  void ShowRemark() {
    wxString said = ToWx(source_.remark());
    const auto add = [&said](const wxString& more) { said += (said.empty() ? "" : " ") + more; };
    if (stopped_) add(Text(text::kFindingsStopped));
    if (!searching_ && shown_ == 0) add(Text(text::kFindingsNone));
    if (remark_->GetLabel() == said) return;
    remark_->SetLabel(said);
    remark_->SetToolTip(said);
  }

  void GoTo() {
    const long row = List_Findings->GetFirstSelected();
    if (row < 0) return;
    chosen = static_cast<std::size_t>(row);
    EndModal(wxID_OK);
  }

  ZV_Proc& proc_;
  const FindingSource& source_;
  std::size_t marked_;
  std::size_t shown_ = 0;
  bool searching_ = true;
  bool stopped_ = false;
  wxStaticText* remark_ = nullptr;
  wxListView* List_Findings = nullptr;
  wxTextCtrl* whole_ = nullptr;  // the chosen finding; the list cuts its text
  wxButton* goTo_ = nullptr;
  wxButton* stop_ = nullptr;
};

}  // namespace

std::optional<std::size_t> ShowFindings(wxWindow* parent, ZV_Proc& proc, const std::string& title,
                                        const FindingSource& source, std::size_t marked) {
  ModalForm<FindingsForm> form(parent, proc, title, source, marked);
  const auto* const closed = form.Show();
  return closed == nullptr ? std::nullopt : closed->chosen;
}

}  // namespace zek
