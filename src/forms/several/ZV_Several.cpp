#include "forms/several/ZV_Several.h"

#include <array>
#include <memory>

#include <wx/button.h>
#include <wx/simplebook.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include "forms/CancelTransfer.h"
#include "forms/ModeStrip.h"
#include "forms/StatusChain.h"
#include "forms/ZV_Help.h"
#include "forms/several/ChangesPanel.h"
#include "forms/several/ControlTicks.h"
#include "forms/several/PlanPanel.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "plan/PlanRun.h"
#include "plan/PlanWords.h"
#include "ui/FileBox.h"
#include "ui/FormDialog.h"
#include "ui/Forms.h"
#include "ui/InputBlock.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kWidth = 740;
constexpr int kHeight = 500;
constexpr int kTimerMs = 1000;
constexpr std::int64_t kLatestStart = 600;  // seconds; later nobody expects it any more

enum Step : int { kWho, kWhat, kPlan };

bool CanSend(const ZV_Proc& proc) { return !proc.settings.ViewOnly && !proc.settings.LocalMode; }

class SeveralForm final : public FormDialog {
 public:
  SeveralForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, PlanRun& run)
      : FormDialog(parent, wxID_ANY, ToWx(SeveralTitle(proc.texts)), wxDefaultPosition,
                   wxDefaultSize, wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX,
                   "ZV_Several"),
        proc_(proc),
        turn_(turn),
        run_(run),
        Timer_Start([this] { OnTick(); }) {
    SetIcons(ProgramIcons());
    Build();
    RememberPlacement(*this, "ZV_Several");
    if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
    HelpOnF1(*this, proc, kHelpPageSeveral);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { CloseOrStay(); }, wxID_CANCEL);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { CloseOrStay(); });
    // Deferred until the form is visible; before that nothing can get the focus.
    CallAfter([this] {
      Raise();
      GoTo(kWho);
      OfferOpenPlans();
    });
  }

  void TickNode(std::size_t node) { who_->TickNode(node); }

  void ShowLines() {
    plan_->ShowLines();
    ShowProgress();
  }

  void ShowProgress() {
    if (!run_.IsBusy()) return;
    const std::string at = std::to_string(std::min(run_.Lines().size() + 1, run_.Total()));
    std::string state =
        Message(proc_.Text(sending_ ? text::kSeveralSending : text::kSeveralReading),
                {at, std::to_string(run_.Total())});
    for (const std::string* part : {&proc_.status.Transfer, &proc_.status.Waiting})
      if (!part->empty()) state += "  " + *part;
    plan_->ShowState(state);
  }

 private:
  wxString Text(std::int32_t number) const { return ToWx(proc_.Text(number)); }

  void Build() {
    const int gap = FromDIP(kGap);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    if (wxWindow* const strip = NewModeStrip(this, proc_)) whole->Add(strip, 0, wxEXPAND);
    Label_Step = new wxStaticText(this, wxID_ANY, {});
    Label_Step->SetName("Label_Step");
    Label_Step->SetFont(Label_Step->GetFont().Bold());
    whole->Add(Label_Step, 0, wxEXPAND | wxALL, gap);
    pages_ = new wxSimplebook(this, wxID_ANY);
    who_ = new ControlTicks(pages_, proc_, [this] { ShowSteps(); });
    what_ = new ChangesPanel(pages_, proc_, [this] {
      unsent_ = what_ != nullptr && !what_->Changes().empty();
      ShowSteps();
    });
    plan_ = new PlanPanel(pages_, proc_, run_,
                          {[this] { AskStart(); }, [this] { StartLater(); },
                           [this] { CancelPlan(); }, [this] { SaveReport(); }});
    for (wxWindow* const page : std::initializer_list<wxWindow*>{who_, what_, plan_})
      pages_->AddPage(page, {});
    whole->Add(pages_, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
    auto* const commands = new wxBoxSizer(wxHORIZONTAL);
    Command_Back = NewButton("Command_Back", text::kWeekBefore, [this] { GoTo(Now() - 1); });
    Command_Next = NewButton("Command_Next", text::kWeekAfter, [this] { Next(); });
    commands->Add(Command_Back, 0, wxRIGHT, gap);
    commands->Add(Command_Next, 0, wxRIGHT, gap);
    commands->AddStretchSpacer();
    // Escape closes; a letter would be that of "Starta nu".
    Command_Close =
        new wxButton(this, wxID_CANCEL, wxControl::RemoveMnemonics(Text(text::kBrowserClose)));
    commands->Add(Command_Close);
    SetEscapeId(wxID_CANCEL);
    whole->Add(commands, 0, wxEXPAND | wxALL, gap);
    SetSizer(whole);
    SetMinSize(whole->GetMinSize());
    SetSize(FromDIP(wxSize(kWidth, kHeight)));
    plan_->ShowActions(PlanPanel::Waits::User);
    ShowSteps();
  }

  wxButton* NewButton(const char* name, std::int32_t caption, const std::function<void()>& act) {
    auto* const button = new wxButton(this, wxID_ANY, Text(caption));
    button->SetName(name);
    button->Bind(wxEVT_BUTTON, [act](wxCommandEvent&) { act(); });
    return button;
  }

  // --- The steps ---

  int Now() const { return pages_->GetSelection(); }

  void GoTo(int step) {
    pages_->ChangeSelection(static_cast<std::size_t>(step));
    if (step == kWho) who_->Enter();
    if (step == kWhat) what_->Enter(who_->Names());
    if (step == kPlan) plan_->Enter();
    ShowSteps();
  }

  void Next() {
    if (Now() == kWho) return GoTo(kWhat);
    const wxWeakRef<SeveralForm> alive(this);
    if (what_->HasEntry() &&
        !proc_.prompts.AskYesNo(Icon::Exclamation, proc_.Text(text::kSeveralNotAdded),
                                SeveralTitle(proc_.texts)))
      return;
    if (!alive) return;
    GoTo(kPlan);
    MakePlan();
  }

  void ShowSteps() {
    if (plan_ == nullptr || Command_Close == nullptr) return;  // while the form is built
    constexpr std::array headings = {text::kSeveralWho, text::kSeveralWhat, text::kSeveralPlan};
    const int step = Now();
    wxString heading = Text(headings.at(static_cast<std::size_t>(std::max(step, 0))));
    if (proc_.settings.LocalMode) {
      heading += "  " + Text(text::kSeveralLocal);
    } else if (proc_.settings.ViewOnly) {
      heading += "  " + Text(text::kSeveralViewOnly);
    }
    Label_Step->SetLabel(heading);
    const bool free = !run_.IsBusy() && !startAt_;
    const bool ready =
        step == kWho ? who_->Any() : !what_->Changes().empty() && !proc_.settings.LocalMode;
    Command_Back->Enable(free && step > kWho);
    Command_Next->SetLabel(Text(step == kWhat ? text::kSeveralMakePlan : text::kWeekAfter));
    Command_Next->Enable(free && step < kPlan && ready);
    (step == kWhat ? what_->AddButton() : *Command_Next).SetDefault();
    Layout();
  }

  // --- The plan ---

  // Runs what fetches or sends, with the form blocked. Returns false if the form is gone or closes.
  bool Work(bool sending, const std::function<void()>& work) {
    const wxWeakRef<SeveralForm> alive(this);
    sending_ = sending;
    Command_Close->Disable();
    bool close = false;
    {
      const InputBlock block(
          [alive] {
            if (alive) alive->CancelPlan();
          },
          &plan_->CancelButton());
      plan_->ShowActions(PlanPanel::Waits::Transfer);
      plan_->CancelButton().SetFocus();
      for (wxButton* const step : {Command_Back, Command_Next}) step->Disable();
      work();
      if (!alive) return false;
      close = block.CloseRequested() || turn_.Quitting();
    }
    Command_Close->Enable();
    plan_->ShowLines();
    plan_->ShowActions(PlanPanel::Waits::User);
    ShowSteps();
    plan_->Enter();
    if (close) EndModal(wxID_CANCEL);
    return !close;
  }

  void MakePlan() {
    std::vector<ListedChange> changes = what_->Changes();
    std::vector<std::string> nodes = who_->Nodes();
    if (!Work(false, [&run = run_, &changes, &nodes] { run.Make(changes, nodes); })) return;
    if (run_.Lines().empty()) return GoTo(kWhat);  // cancelled
    ShowPlanned();
  }

  void ShowPlanned() {
    plan_->ShowState(
        Message(proc_.Text(text::kSeveralPlanned),
                {std::to_string(run_.Catalogues()), std::to_string(run_.Count(PlanWord::Unchanged)),
                 std::to_string(run_.Count(PlanWord::Refused)), DurationText(run_.Seconds())}));
  }

  void AskStart() {
    const wxWeakRef<SeveralForm> alive(this);
    const std::string question =
        Message(proc_.Text(text::kSeveralAskStart),
                {std::to_string(run_.Catalogues()), DurationText(run_.Seconds())});
    if (proc_.prompts.AskYesNo(Icon::Exclamation, question, SeveralTitle(proc_.texts)) && alive)
      Send();
  }

  void Send() {
    std::string why;
    if (!Work(true, [&run = run_, &why] { why = run.Send(); })) return;
    unsent_ = false;
    const std::string all = std::to_string(run_.Catalogues());
    const std::string changed = std::to_string(run_.Changed());
    plan_->ShowState(changed == all ? Message(proc_.Text(text::kSeveralDone), {all})
                                    : Message(proc_.Text(text::kSeveralNotDone), {changed, all}));
    if (!why.empty()) proc_.prompts.Show(Icon::Exclamation, why, SeveralTitle(proc_.texts));
  }

  // The question must not run inside the handler of a key.
  void CancelPlan() {
    if (startAt_) return CallOff();
    run_.Cancel();
    CallAfter([&proc = proc_] { CancelTransfer(proc); });
  }

  // --- A later start ---

  void StartLater() {
    const auto at = plan_->ChosenTime();
    if (!at) return;
    if (const std::string why = run_.Keep(); !why.empty())
      return proc_.prompts.Show(Icon::Exclamation, why, SeveralTitle(proc_.texts));
    startAt_ = at;
    Timer_Start.Begin(kTimerMs);
    plan_->ShowActions(PlanPanel::Waits::Start);
    plan_->CancelButton().SetFocus();
    ShowSteps();
    OnTick();
  }

  std::string StartTime() const { return DateAndTime(*startAt_); }

  void OnTick() {
    if (!startAt_) return;
    const std::int64_t left = SecondsBetween(proc_.now(), *startAt_);
    if (left > 0) {
      return plan_->ShowState(
          Message(proc_.Text(text::kSeveralWaiting), {StartTime(), DurationText(left)}));
    }
    if (proc_.status.Busy > 0) return;  // after the present transfer
    const std::string time = StartTime();
    EndWait();
    if (left > -kLatestStart) return Send();
    ShowPlanned();
    proc_.prompts.Show(Icon::Exclamation, Message(proc_.Text(text::kSeveralMissed), {time}));
  }

  void EndWait() {
    Timer_Start.Stop();
    startAt_.reset();
    plan_->ShowActions(PlanPanel::Waits::User);
    ShowSteps();
  }

  void CallOff() {
    EndWait();
    run_.Drop();
    ShowPlanned();
  }

  // --- Others ---

  void SaveReport() {
    const wxWeakRef<SeveralForm> alive(this);
    const std::string path =
        AskFileToWrite(this, Text(text::kSaveReport), ToWx(SeveralTitle(proc_.texts)) + ".txt",
                       Text(text::kLogFilter), "txt");
    if (path.empty() || !alive) return;
    const auto error = proc_.files.Write(path, run_.Report(plan_->State()));
    if (error) proc_.ToUser().Tell(*error);
  }

  void OfferOpenPlans() {
    if (!CanSend(proc_) || !proc_.prompts.Attended()) return;
    const wxWeakRef<SeveralForm> alive(this);
    for (const std::string& name : run_.OpenPlans()) {
      const std::string damaged = run_.Take(name);
      std::string question = damaged;
      if (!damaged.empty()) question += "\r\n\r\n";
      question += Message(proc_.Text(text::kSeveralAskOpen),
                          {PlanRun::TimeOf(name), std::to_string(run_.Catalogues())});
      const Answer answer =
          proc_.prompts.AskThree(Icon::Exclamation, question, SeveralTitle(proc_.texts),
                                 {proc_.Text(text::kSeveralGoOn), proc_.Text(text::kSeveralGiveUp),
                                  proc_.Text(text::kCalendarCancel)});
      if (!alive) return;
      if (answer == Answer::No) {
        const std::string why = run_.GiveUp(name);
        if (!why.empty()) proc_.prompts.Show(Icon::Exclamation, why);
        if (!alive) return;
      }
      if (answer != Answer::Yes || !damaged.empty()) continue;
      GoTo(kPlan);
      plan_->ShowLines();
      plan_->ShowActions(PlanPanel::Waits::User);
      return ShowPlanned();
    }
    run_.Clear();
  }

  bool AskClose() {
    return proc_.prompts.AskYesNo(Icon::Exclamation, proc_.Text(text::kAskClose),
                                  proc_.Text(text::kAskCloseTitle));
  }

  void CloseOrStay() {
    if (run_.IsBusy()) return CancelPlan();
    const wxWeakRef<SeveralForm> alive(this);
    const bool asked = startAt_.has_value();
    if (startAt_) {
      const std::string question = Message(proc_.Text(text::kSeveralAskCallOff), {StartTime()});
      if (!proc_.prompts.AskYesNo(Icon::Exclamation, question, SeveralTitle(proc_.texts))) return;
      if (!alive || run_.IsBusy()) return;  // the time came while the question was open
      if (startAt_) CallOff();
    }
    if (!asked && unsent_ && !turn_.Quitting() && !AskClose()) return;
    if (!alive) return;
    EndModal(wxID_CANCEL);
  }

  ZV_Proc& proc_;
  WxTurn& turn_;
  PlanRun& run_;
  WxTick Timer_Start;
  std::optional<LocalTime> startAt_;
  bool sending_ = false;
  bool unsent_ = false;  // changes were listed, and no plan was sent since
  wxSimplebook* pages_ = nullptr;
  ControlTicks* who_ = nullptr;
  ChangesPanel* what_ = nullptr;
  PlanPanel* plan_ = nullptr;
  wxStaticText* Label_Step = nullptr;
  wxButton* Command_Back = nullptr;
  wxButton* Command_Next = nullptr;
  wxButton* Command_Close = nullptr;
};

}  // namespace

void ShowSeveral(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, std::optional<std::size_t> ticked) {
  // The plan outlives the form, which may be destroyed during a transfer.
  wxWeakRef<SeveralForm> alive;
  PlanRun run(proc, [&alive] {
    if (alive) alive->ShowLines();
  });
  auto* const form = new SeveralForm(parent, proc, turn, run);
  alive = form;
  if (ticked) form->TickNode(*ticked);
  const StatusChain chain(proc.status, [&alive] {
    if (alive) alive->ShowProgress();
  });
  form->ShowModal();
  if (alive) form->Destroy();  // later, in the event loop
}

bool HasOpenPlan(ZV_Proc& proc) {
  return CanSend(proc) && !PlanRun(proc, [] {}).OpenPlans().empty();
}

}  // namespace zek
