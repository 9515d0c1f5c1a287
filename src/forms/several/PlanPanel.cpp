#include "forms/several/PlanPanel.h"

#include <algorithm>
#include <array>

#include <wx/sizer.h>

#include "forecast/MomentText.h"
#include "formats/ExceptionCells.h"
#include "lang/TextNumbers.h"
#include "plan/PlanWords.h"
#include "ui/AccessibleName.h"
#include "ui/DropDown.h"
#include "ui/WxText.h"

namespace zek {
namespace {

constexpr int kGap = 6;
constexpr int kListWidth = 500;
constexpr int kListHeight = 220;
constexpr int kMinutesOfHour = 60;

struct Column {
  std::int32_t heading;
  int width;  // in characters
};
constexpr std::array<Column, 4> kColumns{{{text::kSeveralResult, 15},
                                          {text::kColumnControl, 18},
                                          {text::kHistoryKind, 12},
                                          {text::kPlanRemark, 60}}};

}  // namespace

PlanPanel::PlanPanel(wxWindow* parent, const ZV_Proc& proc, const PlanRun& run,
                     const Actions& actions)
    : wxPanel(parent), proc_(proc), run_(run) {
  Build(actions);
}

void PlanPanel::Build(const Actions& actions) {
  const int gap = FromDIP(kGap);
  Label_State = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                 wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
  Label_State->SetName("Label_State");
  List_Plan =
      new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kListWidth, kListHeight)),
                     wxLC_REPORT | wxLC_SINGLE_SEL);
  List_Plan->SetName("List_Plan");
  SetAccessibleName(*List_Plan, ToWx(proc_.Text(text::kSeveralPlan)));
  const int letter = GetTextExtent("n").x;
  for (const Column& column : kColumns) {
    wxString heading = wxControl::RemoveMnemonics(ToWx(proc_.Text(column.heading)));
    heading.Replace(":", "");
    List_Plan->AppendColumn(heading, wxLIST_FORMAT_LEFT, column.width * letter);
  }
  Gauge_Plan = new wxGauge(this, wxID_ANY, 1);
  Gauge_Plan->SetName("Gauge_Plan");
  SetAccessibleName(*Gauge_Plan, ToWx(proc_.Text(text::kSeveralPlan)));
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(Label_State, 0, wxEXPAND | wxBOTTOM, gap);
  whole->Add(List_Plan, 1, wxEXPAND | wxBOTTOM, gap);
  whole->Add(Commands(actions), 0, wxEXPAND);
  SetSizer(whole);
}

wxSizer* PlanPanel::Commands(const Actions& actions) {
  const int gap = FromDIP(kGap);
  auto* const starts = new wxBoxSizer(wxHORIZONTAL);
  auto* row = starts;
  const auto button = [&](const char* name, std::int32_t caption,
                          const std::function<void()>& act) {
    auto* const command = new wxButton(this, wxID_ANY, ToWx(proc_.Text(caption)));
    command->SetName(name);
    command->Bind(wxEVT_BUTTON, [act](wxCommandEvent&) { act(); });
    row->Add(command, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
    return command;
  };
  Command_Start = button("Command_Start", text::kSeveralStart, actions.start);
  Command_StartLater = button("Command_StartLater", text::kSeveralStartAt, actions.startLater);
  const auto box = [&](const char* name, const char* widest, const std::string& text) {
    auto* const entry = new EntryBox(this, name, widest, true);
    entry->SetSpokenName(wxControl::RemoveMnemonics(Command_StartLater->GetLabel()));
    entry->ShowText(text);
    row->Add(entry, 0, wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
    return entry;
  };
  Text_StartDate = box("Text_StartDate", "2026-12-24 ", DateText(MomentOf(proc_.now())));
  Text_StartDate->Offer(
      [this] {
        return NewDropCalendar(Text_StartDate->Text(), Text_StartDate->Typed(), proc_.texts,
                               [this](const std::string& date) { Text_StartDate->ShowText(date); });
      },
      {}, false);
  Text_StartClock = box("Text_StartClock", "00:00 ", "");
  row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(Gauge_Plan, 1, wxALIGN_CENTER_VERTICAL | wxRIGHT | wxRESERVE_SPACE_EVEN_IF_HIDDEN, gap);
  Command_SaveReport = button("Command_SaveReport", text::kSeveralSaveReport, actions.saveReport);
  Command_CancelPlan = button("Command_CancelPlan", text::kCancelTransfer, actions.cancel);
  auto* const both = new wxBoxSizer(wxVERTICAL);
  both->Add(starts, 0, wxEXPAND | wxBOTTOM, gap);
  both->Add(row, 0, wxEXPAND);
  return both;
}

void PlanPanel::ShowLines() {
  const std::vector<PlanLine>& lines = run_.Lines();
  auto shown = static_cast<std::size_t>(List_Plan->GetItemCount());
  if (shown >= lines.size()) {
    List_Plan->DeleteAllItems();
    shown = 0;
  }
  for (; shown < lines.size(); ++shown) {
    const PlanLine& line = lines[shown];
    const auto row = static_cast<long>(shown);
    List_Plan->InsertItem(row, ToWx(ResultOf(line, proc_.texts)));
    List_Plan->SetItem(row, 1, ToWx(line.node));
    List_Plan->SetItem(row, 2, ToWx(CatalogueOf(line, proc_.texts)));
    List_Plan->SetItem(row, 3, ToWx(RemarkOf(line, proc_.texts)));
    if (run_.IsBusy()) List_Plan->EnsureVisible(row);
  }
  Gauge_Plan->SetRange(std::max(static_cast<int>(run_.Total()), 1));
  Gauge_Plan->SetValue(
      static_cast<int>(std::min(lines.size(), std::max<std::size_t>(run_.Total(), 1))));
}

void PlanPanel::ShowState(const std::string& state) {
  const wxString text = ToWx(state);
  if (Label_State->GetLabel() == text) return;
  Label_State->SetLabel(text);
  Label_State->SetToolTip(text);
}

std::string PlanPanel::State() const { return FromWx(Label_State->GetLabel()); }

void PlanPanel::ShowActions(Waits waits) {
  const bool free = waits == Waits::User;
  const bool maySend =
      free && run_.CanSend() && !proc_.settings.ViewOnly && !proc_.settings.LocalMode;
  for (wxWindow* const part : std::initializer_list<wxWindow*>{Command_Start, Command_StartLater,
                                                               Text_StartDate, Text_StartClock})
    part->Enable(maySend);
  Command_SaveReport->Enable(free && !run_.Lines().empty());
  Command_CancelPlan->Enable(!free);
  Gauge_Plan->Show(waits == Waits::Transfer);
}

std::optional<LocalTime> PlanPanel::ChosenTime() {
  const auto date = TypedExceptionDate(Text_StartDate->Typed());
  const auto time = TypedExceptionTime(Text_StartClock->Typed());
  std::optional<LocalTime> chosen;
  if (date && time) {
    const DateParts day = DateOf(*date + *time);
    const int minutes = TimeOfDay(*date + *time);
    chosen = LocalTime{
        day.year, day.month, day.day, minutes / kMinutesOfHour, minutes % kMinutesOfHour, 0};
  }
  const bool past = chosen && SecondsBetween(proc_.now(), *chosen) < 0;
  Text_StartDate->Mark(date ? wxString() : ToWx(proc_.Text(text::kDateHint)));
  Text_StartClock->Mark(
      time && !past ? wxString() : ToWx(proc_.Text(past ? text::kSeveralPast : text::kTimeHint)));
  if (!date || !time || past) {
    (date ? Text_StartClock : Text_StartDate)->Focus();
    return std::nullopt;
  }
  return chosen;
}

void PlanPanel::Enter() { List_Plan->SetFocus(); }

}  // namespace zek
