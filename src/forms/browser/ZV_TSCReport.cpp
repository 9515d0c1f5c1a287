#include <array>
#include <set>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include "app/ReportCollector.h"
#include "forecast/MomentText.h"
#include "formats/CalendarTable.h"
#include "forms/CancelTransfer.h"
#include "forms/ZV_Help.h"
#include "forms/browser/ZV_TSC.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "ui/AccessibleName.h"
#include "ui/FileBox.h"
#include "ui/Forms.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

// The report in the browser.
namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kColumns = 60;

// Messages are collected; questions go to the user.
class CollectingPrompts final : public Prompts {
 public:
  explicit CollectingPrompts(Prompts& own) : own_(own) {}

  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) override {
    told.push_back(message);
  }
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) override {
    return own_.AskYesNo(icon, question, caption, standard);
  }
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) override {
    return own_.AskThree(icon, question, caption, captions);
  }

  std::vector<std::string> told;

 private:
  Prompts& own_;
};

// Reads the controls of a report, those of a silent controller only once.
class ReportRun {
 public:
  ReportRun(ZV_Proc& proc, bool fetch)
      : proc_(proc),
        prompts_(proc.prompts.Own()),
        collector_(proc, {[this, fetch](const CatalogueId& id) { return Read(id, fetch); }, !fetch},
                   DayOf(proc.now())) {}

  void Add(std::size_t node) {
    const PromptsInstead instead(proc_.prompts, prompts_);
    if (collector_.Add(node) || cancelled) return;
    std::string why = NodeName(proc_.tree, proc_.topics, node);
    if (!prompts_.told.empty()) why += ": " + prompts_.told.front();
    prompts_.told.clear();
    failures += "\r\n" + why;
  }

  const ReportCollector& Collector() const { return collector_; }

  bool cancelled = false;
  std::string failures;  // a line each

 private:
  std::optional<CatalogueContent> Read(const CatalogueId& id, bool fetch) {
    if (!fetch && !proc_.copies.Exists(id)) return std::nullopt;
    if (cancelled || silent_.contains(id.object)) return std::nullopt;
    auto content = proc_.catalogues.GetCatalogue(id, fetch ? CopyUse::PassOver : CopyUse::Take);
    if (!content && fetch) silent_.insert(id.object);
    return content;
  }

  ZV_Proc& proc_;
  CollectingPrompts prompts_;
  ReportCollector collector_;
  std::set<std::int16_t> silent_;
};

wxString TitleOf(const ZV_Proc& proc) {
  wxString title = wxControl::RemoveMnemonics(ToWx(proc.Text(text::kReportMenu)));
  title.Replace("...", "");
  return title;
}

class ReportForm final : public wxDialog {
 public:
  ReportForm(wxWindow* parent, ZV_Proc& proc, std::optional<std::size_t> selected)
      : wxDialog(parent, wxID_ANY, TitleOf(proc), wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE, "ZV_Report"),
        proc_(proc),
        selected_(selected) {
    SetIcons(ProgramIcons());
    Build();
    CenterForm(*this);
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageApplies);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Write(); }, wxID_OK);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { CloseOrCancel(); }, wxID_CANCEL);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { CloseOrCancel(); });
    // Without a window manager the program itself must activate the window.
    CallAfter([this] {
      Raise();
      Choice_Node->SetFocus();
    });
  }

 private:
  void Build() {
    const int gap = FromDIP(kGap);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    auto* const nodes = new wxBoxSizer(wxHORIZONTAL);
    const wxString of = ToWx(proc_.Text(text::kReportOf));
    nodes->Add(new wxStaticText(this, wxID_ANY, of), 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
    Choice_Node = new wxChoice(this, wxID_ANY);
    Choice_Node->SetName("Choice_Node");
    SetAccessibleName(*Choice_Node, wxControl::RemoveMnemonics(of));
    Choice_Node->Append(ToWx(proc_.Text(text::kReportWholePlant)));
    if (selected_) Choice_Node->Append(ToWx(NodeName(proc_.tree, proc_.topics, *selected_)));
    Choice_Node->SetSelection(selected_ ? 1 : 0);
    nodes->Add(Choice_Node, 1);
    whole->Add(nodes, 0, wxEXPAND | wxALL, gap);
    auto* const years = new wxBoxSizer(wxHORIZONTAL);
    const wxString caption = ToWx(proc_.Text(text::kCalendarCaption + 2));
    years->Add(new wxStaticText(this, wxID_ANY, caption), 0, wxALIGN_CENTER_VERTICAL | wxRIGHT,
               gap);
    Spin_Year = new wxSpinCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                               wxSP_ARROW_KEYS, kFirstKnownYear, kLastKnownYear, proc_.now().year);
    Spin_Year->SetName("Spin_Year");
    SetAccessibleName(*Spin_Year, wxControl::RemoveMnemonics(caption));
    years->Add(Spin_Year);
    whole->Add(years, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    Check_Fetch = new wxCheckBox(this, wxID_ANY, ToWx(proc_.Text(text::kReportFetch)));
    Check_Fetch->SetName("Check_Fetch");
    Check_Fetch->Enable(!proc_.settings.LocalMode);
    whole->Add(Check_Fetch, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
    Label_State = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    Label_State->SetMinSize({Label_State->GetTextExtent("n").x * kColumns, -1});
    whole->Add(Label_State, 0, wxEXPAND | wxLEFT | wxRIGHT, gap);
    Gauge_Report = new wxGauge(this, wxID_ANY, 1);
    Gauge_Report->SetName("Gauge_Report");
    SetAccessibleName(*Gauge_Report, GetTitle());
    whole->Add(Gauge_Report, 0, wxEXPAND | wxALL | wxRESERVE_SPACE_EVEN_IF_HIDDEN, gap);
    Gauge_Report->Hide();
    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    commands->AddStretchSpacer();
    Command_Save = new wxButton(this, wxID_OK, ToWx(proc_.Text(text::kSeveralSaveReport)));
    Command_Save->SetName("Command_SaveReport");
    Command_Save->SetDefault();
    commands->Add(Command_Save, 0, wxRIGHT, gap);
    cancel_ = new wxButton(this, wxID_CANCEL, ToWx(proc_.Text(text::kCalendarCancel)));
    commands->Add(cancel_);
    SetEscapeId(wxID_CANCEL);
    whole->Add(commands, 0, wxEXPAND | wxALL, gap);
    SetSizerAndFit(whole);
  }

  std::vector<std::size_t> Nodes() const {
    const bool whole = Choice_Node->GetSelection() == 0;
    std::vector<std::size_t> nodes;
    for (std::size_t node = 0; node < proc_.tree.size(); ++node) {
      const TreeNode& each = proc_.tree[node];
      if (each.Parent && (whole || node == *selected_ || *each.Parent == *selected_))
        nodes.push_back(node);
    }
    return nodes;
  }

  void Write() {
    const wxWeakRef<ReportForm> alive(this);
    const std::string path =
        AskFileToWrite(this, ToWx(proc_.Text(text::kSaveReport)), GetTitle() + ".html",
                       ToWx(proc_.Text(text::kReportFiles)) + " (*.html)|*.html", "html");
    if (path.empty() || !alive) return;
    ReportRun run(proc_, Check_Fetch->IsChecked());
    run_ = &run;
    ShowBusy();
    if (!ReadAll(run)) return;
    run_ = nullptr;
    std::string said = proc_.Text(text::kReportNotWritten);
    bool written = false;
    if (!run.cancelled && !run.Collector().IsEmpty()) {
      const auto error = proc_.files.Write(path, run.Collector().Page(Spin_Year->GetValue()));
      written = !error;
      said = error ? FileMessage(proc_.texts, *error)
                   : Message(proc_.Text(text::kReportDone), {Windows1252FromUtf8(path)});
    }
    ShowBusy();
    if (run.cancelled) return;
    const bool whole = written && run.failures.empty();
    proc_.prompts.Show(whole ? Icon::Information : Icon::Exclamation, said + run.failures,
                       FromWx(GetTitle()));
    if (alive && written) EndModal(wxID_OK);
  }

  // Returns false if the form is gone.
  bool ReadAll(ReportRun& run) {
    const wxWeakRef<ReportForm> alive(this);
    const InputBlock block(
        [alive] {
          if (alive) alive->Cancel();
        },
        cancel_);
    const std::vector<std::size_t> nodes = Nodes();
    Gauge_Report->SetRange(std::max(static_cast<int>(nodes.size()), 1));
    for (std::size_t at = 0; at < nodes.size(); ++at) {
      Gauge_Report->SetValue(static_cast<int>(at));
      Label_State->SetLabel(ToWx(Message(proc_.Text(text::kReportReading),
                                         {std::to_string(at + 1), std::to_string(nodes.size())})));
      proc_.turn.RunPending();
      if (!alive) return false;
      run.cancelled = run.cancelled || proc_.turn.Quitting();
      if (run.cancelled) break;
      run.Add(nodes[at]);
      if (!alive) return false;
    }
    run.cancelled = run.cancelled || block.CloseRequested();
    return true;
  }

  void ShowBusy() {
    const bool busy = run_ != nullptr;
    for (wxWindow* const part : std::initializer_list<wxWindow*>{Choice_Node, Spin_Year})
      part->Enable(!busy);
    Command_Save->Enable(!busy && !Nodes().empty());
    Check_Fetch->Enable(!busy && !proc_.settings.LocalMode);
    Gauge_Report->Show(busy);
    if (busy) cancel_->SetFocus();
    if (!busy) Label_State->SetLabel({});
  }

  // The question must not run inside the handler of a key.
  void Cancel() {
    if (run_ == nullptr) return;
    run_->cancelled = true;
    CallAfter([&proc = proc_] { CancelTransfer(proc); });
  }

  void CloseOrCancel() {
    if (run_ != nullptr) return Cancel();
    EndModal(wxID_CANCEL);
  }

  ZV_Proc& proc_;
  std::optional<std::size_t> selected_;
  ReportRun* run_ = nullptr;  // while it runs
  wxChoice* Choice_Node = nullptr;
  wxSpinCtrl* Spin_Year = nullptr;
  wxCheckBox* Check_Fetch = nullptr;
  wxStaticText* Label_State = nullptr;
  wxGauge* Gauge_Report = nullptr;
  wxButton* Command_Save = nullptr;
  wxButton* cancel_ = nullptr;
};

}  // namespace

void ZV_TSC::OnReport() {
  if (busy_) return;
  const wxWeakRef<ZV_TSC> alive(this);
  ModalForm<ReportForm>(this, proc_, TreeView->Selected()).Show();
  if (!alive) return;
  if (turn_.Quitting()) return static_cast<void>(Close());
  OnSelected();  // reading selected other nodes
  ReadStatesAgain();
  TakeKeys();
}

}  // namespace zek
