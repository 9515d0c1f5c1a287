#include "forms/ZV_Applies.h"

#include <algorithm>
#include <array>
#include <utility>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "editors/PickList.h"
#include "forecast/MomentText.h"
#include "formats/CalendarTable.h"
#include "formats/ExceptionCells.h"
#include "forms/SceneView.h"
#include "forms/ZV_Help.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "picture/ForecastScene.h"
#include "ui/AccessibleName.h"
#include "ui/EntryBox.h"
#include "ui/FormDialog.h"
#include "ui/Forms.h"
#include "ui/Mnemonics.h"
#include "ui/ModalForm.h"
#include "ui/Pictures.h"
#include "ui/WxText.h"
#include "wxbase/WxTurn.h"

namespace zek {
namespace {

constexpr int kGap = 8;
constexpr int kWidth = 780;
constexpr int kHeight = 540;
constexpr int kLines = 5;  // of the explanation
constexpr int kClockMs = 20000;
constexpr DayNumber kDaysOfWeek = 7;
constexpr DayNumber kThursday = 3;

DayNumber MondayOf(Moment moment) {
  const DayNumber day = DayOf(moment);
  return day - static_cast<DayNumber>(WeekdayOf(day));
}

// The number of a week is that of its Thursday in the year.
int WeekNumber(DayNumber monday) {
  const DayNumber thursday = monday + kThursday;
  const DayNumber newYear = DayOf(DateMoment(DateOf(StartOf(thursday)).year, 1, 1));
  return static_cast<int>((thursday - newYear) / kDaysOfWeek) + 1;
}

bool IsShowable(Moment moment) { return IsKnownYear(DateOf(moment).year); }

class AppliesForm final : public FormDialog {
 public:
  AppliesForm(wxWindow* parent, ZV_Proc& proc, AppliesTo shown);

 private:
  wxButton* NewButton(wxSizer& row, const char* name, std::int32_t caption,
                      std::function<void()> act);
  wxSizer* WeekRow();
  wxSizer* RuleFrame();
  void BuildParts();
  void OnKey(wxKeyEvent& event);
  void OnRule();
  void GoToDay(DayNumber day);
  void GoTo(Moment moment);
  void TakeDate();
  void ShowWeek();
  void ShowClock();
  void ShowMoment();
  Moment MomentShown() const {
    return StartOf(monday_ + static_cast<DayNumber>(picture_->Point().row)) +
           picture_->Point().minute;
  }

  ZV_Proc& proc_;
  AppliesTo shown_;
  std::string object_;
  Rule rule_;
  Forecast forecast_;
  PickList names_;
  SceneWords words_;
  DayNumber monday_;
  Mnemonics letters_;
  EntryBox* Text_Date = nullptr;
  wxStaticText* Label_Week = nullptr;
  SceneView* picture_ = nullptr;
  wxTextCtrl* Text_Why = nullptr;
  std::array<wxCheckBox*, 4> Check_Rule{};
  WxTick clock_;
};

// The switches of the rule, in the order of their texts.
constexpr std::array<bool Rule::*, 4> kSwitches{&Rule::exceptionsCommand, &Rule::daysBeginAnew,
                                                &Rule::missingStopsHold, &Rule::earlyStopsNextDay};

AppliesForm::AppliesForm(wxWindow* parent, ZV_Proc& proc, AppliesTo shown)
    : FormDialog(parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                 wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX, "ZV_Applies"),
      proc_(proc),
      shown_(std::move(shown)),
      object_(proc.selection.TopicName),
      rule_(RuleOf(proc.profile, object_)),
      forecast_(shown_.schedule, rule_),
      names_(
          ReadPickList(proc.profile, proc.selection.PickListTable, proc.settings.DecimalSeparator)),
      words_(proc.texts, ReadSpecialDayNames(proc.profile, object_),
             [this](float value) {
               return WithName(ValueText(value, proc_.settings.DecimalSeparator), names_);
             }),
      monday_(MondayOf(MomentOf(proc.now()))),
      clock_([this] { ShowClock(); }) {
  SetTitle(ToWx((proc.settings.Demo ? "DEMO - " : "") +
                Message(proc.Text(text::kAppliesTitle), {shown_.node})));
  SetIcons(ProgramIcons());
  BuildParts();
  SetSize(FromDIP(wxSize(kWidth, kHeight)));
  RememberPlacement(*this, "ZV_Applies");
  if (proc.settings.AlwaysOnTop) SetTopmost(*this, true);
  HelpOnF1(*this, proc, kHelpPageApplies);
  Bind(wxEVT_CHAR_HOOK, &AppliesForm::OnKey, this);
  GoTo(MomentOf(proc.now()));
  clock_.Begin(kClockMs);
  CallAfter([this] {
    Raise();  // needed without a window manager
    picture_->SetFocus();
  });
}

void AppliesForm::BuildParts() {
  const int gap = FromDIP(kGap);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(WeekRow(), 0, wxEXPAND | wxALL, gap);
  for (const std::string& remark : shown_.remarks) {
    auto* const label = new wxStaticText(this, wxID_ANY, ToWx(remark));
    label->SetName("Label_Remark");
    label->SetFont(label->GetFont().Bold());
    whole->Add(label, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  }
  picture_ = new SceneView(this, "Picture_Week", [this] { ShowMoment(); });
  whole->Add(picture_, 1, wxEXPAND | wxLEFT | wxRIGHT, gap);
  Text_Why = new wxTextCtrl(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP);
  Text_Why->SetName("Text_Why");
  SetAccessibleName(*Text_Why, GetTitle());
  Text_Why->SetMinSize({-1, (GetCharHeight() + 2) * kLines});
  whole->Add(Text_Why, 0, wxEXPAND | wxALL, gap);
  auto* const foot = new wxBoxSizer(wxHORIZONTAL);
  foot->Add(RuleFrame(), 1, wxRIGHT, gap);
  foot->Add(new wxButton(this, wxID_CANCEL, ToWx(proc_.Text(text::kBrowserClose))), 0,
            wxALIGN_BOTTOM);
  whole->Add(foot, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  SetSizer(whole);
}

wxButton* AppliesForm::NewButton(wxSizer& row, const char* name, std::int32_t caption,
                                 std::function<void()> act) {
  auto* const button = new wxButton(this, wxID_ANY, letters_.Give(ToWx(proc_.Text(caption))));
  button->SetName(name);
  button->Bind(wxEVT_BUTTON, [act = std::move(act)](wxCommandEvent&) { act(); });
  row.Add(button, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, FromDIP(kGap));
  return button;
}

wxSizer* AppliesForm::WeekRow() {
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  NewButton(*row, "Command_Before", text::kWeekBefore, [this] { GoToDay(monday_ - kDaysOfWeek); });
  NewButton(*row, "Command_Today", text::kWeekNow, [this] { GoTo(MomentOf(proc_.now())); });
  NewButton(*row, "Command_After", text::kWeekAfter, [this] { GoToDay(monday_ + kDaysOfWeek); });
  // Without a letter: the toolkit would look for a control to give the focus to, and the box is
  // none.
  auto* const label = new wxStaticText(
      this, wxID_ANY, wxControl::RemoveMnemonics(ToWx(proc_.Text(text::kWeekDate))));
  row->Add(label, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, FromDIP(kGap));
  Text_Date = new EntryBox(this, "Text_Date", "2026-12-24", true);
  Text_Date->SetSpokenName(label->GetLabel());
  Text_Date->Offer(
      [this] {
        return NewDropCalendar(Text_Date->Text(), Text_Date->Typed(), proc_.texts,
                               [this](const std::string& to) {
                                 Text_Date->ShowText(to);
                                 TakeDate();
                               });
      },
      {}, false);
  row->Add(Text_Date, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, FromDIP(kGap));
  Label_Week = new wxStaticText(this, wxID_ANY, {});
  Label_Week->SetName("Label_Week");
  Label_Week->SetFont(Label_Week->GetFont().Bold());
  row->Add(Label_Week, 1, wxALIGN_CENTER_VERTICAL);
  return row;
}

wxSizer* AppliesForm::RuleFrame() {
  auto* const frame = new wxStaticBox(this, wxID_ANY, ToWx(proc_.Text(text::kRuleFrame)));
  auto* const inside = new wxStaticBoxSizer(frame, wxVERTICAL);
  auto* const grid = new wxFlexGridSizer(2, FromDIP(kGap) / 2, 2 * FromDIP(kGap));
  for (std::size_t at = 0; at < kSwitches.size(); ++at) {
    wxCheckBox*& box = Check_Rule.at(at);
    box = new wxCheckBox(
        frame, wxID_ANY,
        letters_.Give(ToWx(proc_.Text(text::kRuleException + static_cast<std::int32_t>(at)))));
    box->SetName("Check_Rule" + std::to_string(at));
    box->SetValue(rule_.*kSwitches.at(at));
    box->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { OnRule(); });
    grid->Add(box);
  }
  inside->Add(grid, 0, wxALL, FromDIP(kGap) / 2);
  return inside;
}

void AppliesForm::OnKey(wxKeyEvent& event) {
  const int key = event.GetKeyCode();
  const bool plain = !event.HasAnyModifiers();
  if (plain && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) && Text_Date->Text().HasFocus()) {
    TakeDate();
  } else if (plain && key == WXK_PAGEUP && !Text_Why->HasFocus()) {
    GoToDay(monday_ - kDaysOfWeek);
  } else if (plain && key == WXK_PAGEDOWN && !Text_Why->HasFocus()) {
    GoToDay(monday_ + kDaysOfWeek);
  } else {
    event.Skip();
  }
}

// With "/VIEWONLY" the program changes nothing: the choice is not kept.
void AppliesForm::OnRule() {
  for (std::size_t at = 0; at < kSwitches.size(); ++at)
    rule_.*kSwitches.at(at) = Check_Rule.at(at)->GetValue();
  forecast_ = Forecast(shown_.schedule, rule_);
  ShowWeek();
  if (proc_.settings.ViewOnly) return;
  if (const auto error = KeepRule(proc_.profile, object_, rule_)) proc_.ToUser().Tell(*error);
}

void AppliesForm::TakeDate() {
  const auto date = TypedExceptionDate(Text_Date->Typed());
  if (date && IsShowable(*date)) {
    GoTo(*date);
  } else {
    Text_Date->Mark(ToWx(proc_.Text(text::kDateHint)));
  }
}

// Another week, at the same time of the same weekday.
void AppliesForm::GoToDay(DayNumber day) {
  const Moment to = MomentShown() + StartOf(day) - StartOf(monday_);
  GoTo(to);
}

void AppliesForm::GoTo(Moment moment) {
  if (!IsShowable(moment)) return;
  monday_ = MondayOf(moment);
  Text_Date->ShowText(DateText(moment));
  Text_Date->Mark({});
  picture_->GoTo({WeekdayOf(DayOf(moment)), TimeOfDay(moment)});
  ShowWeek();
}

void AppliesForm::ShowWeek() {
  const Moment from = StartOf(monday_);
  const Moment to = StartOf(monday_ + kDaysOfWeek);
  const std::string week =
      Message(proc_.Text(text::kWeekSpan),
              {std::to_string(WeekNumber(monday_)), DateText(from), DateText(to - 1)});
  Label_Week->SetLabel(ToWx(week));
  Scene scene = ForecastScene(forecast_, shown_.schedule, from, to, MomentOf(proc_.now()), words_);
  scene.title = week;
  picture_->ShowScene(std::move(scene));
  ShowMoment();
}

// Moves the mark of the present moment only: the user may be reading.
void AppliesForm::ShowClock() {
  const Moment now = MomentOf(proc_.now());
  const Moment from = StartOf(monday_);
  std::optional<ScenePoint> mark;
  if (now >= from && now < StartOf(monday_ + kDaysOfWeek))
    mark = {static_cast<std::size_t>(DayOf(now) - monday_), TimeOfDay(now)};
  if (mark != picture_->Shown().now) picture_->ShowNow(mark);
}

void AppliesForm::ShowMoment() {
  std::string all;
  for (const std::string& sentence :
       Explanation(forecast_, shown_.schedule, MomentShown(), words_)) {
    all += (all.empty() ? "" : "\n") + sentence;
  }
  const wxString text = ToWx(all);
  if (Text_Why->GetValue() != text) Text_Why->ChangeValue(text);
}

}  // namespace

AppliesTo AppliesOf(const ZV_Proc& proc, const ControlCatalogues& catalogues, Schedule schedule,
                    std::optional<Catalogue> edited) {
  AppliesTo shown{std::move(schedule), catalogues.Node(), catalogues.Remarks()};
  const std::string unsent = catalogues.Unsent(edited);
  if (!unsent.empty()) {
    shown.remarks.insert(shown.remarks.begin(), Message(proc.Text(text::kUnsentShown), {unsent}));
  }
  return shown;
}

void ShowApplies(wxWindow* parent, ZV_Proc& proc, AppliesTo shown) {
  ModalForm<AppliesForm>(parent, proc, std::move(shown)).Show();
}

}  // namespace zek
