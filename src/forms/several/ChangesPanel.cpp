#include "forms/several/ChangesPanel.h"

#include "formats/CalendarNames.h"
#include "formats/CalendarTable.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "ui/AccessibleName.h"
#include "ui/DropDown.h"
#include "ui/WxText.h"

namespace zek {
namespace {
constexpr int kGap = 6;
constexpr int kListWidth = 500;
constexpr int kListHeight = 110;
constexpr int kFirstSpecialDay = 8;
constexpr int kBoxColumns = 4;
constexpr int kSpecialDayColumns = 4;
constexpr const char* kDate = "2026-12-24 ";
constexpr const char* kTime = "00:00 ";
constexpr const char* kValue = "-1234.567 ";
}  // namespace

ChangesPanel::ChangesPanel(wxWindow* parent, const ZV_Proc& proc, std::function<void()> changed)
    : wxPanel(parent),
      proc_(proc),
      changed_(std::move(changed)),
      dayNames_(ReadSpecialDayNames(proc.profile, {})) {
  Build();
  ShowKind();
  ShowChanges(0);
  added_ = Entry();
}

void ChangesPanel::Build() {
  const int gap = FromDIP(kGap);
  auto* const head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(new wxStaticText(this, wxID_ANY, ToWx(proc_.Text(text::kSeveralChange))), 0,
            wxALIGN_CENTER_VERTICAL | wxRIGHT, gap);
  Choice_Change = new wxChoice(this, wxID_ANY);
  Choice_Change->SetName("Choice_Change");
  SetAccessibleName(*Choice_Change,
                    wxControl::RemoveMnemonics(ToWx(proc_.Text(text::kSeveralChange))));
  for (std::size_t kind = 0; kind < kChangeKinds; ++kind)
    Choice_Change->Append(ToWx(NameOf(static_cast<ChangeKind>(kind), proc_.texts)));
  Choice_Change->SetSelection(0);
  Choice_Change->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ShowKind(); });
  head->Add(Choice_Change);
  auto* const whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(head, 0, wxEXPAND | wxBOTTOM, gap);
  whole->Add(Days(), 0, wxBOTTOM, gap / 2);
  whole->Add(Boxes(), 0, wxBOTTOM, gap);
  Label_Wrong = new wxStaticText(this, wxID_ANY, {});
  Label_Wrong->SetName("Label_Wrong");
  whole->Add(Label_Wrong, 0, wxEXPAND | wxBOTTOM, gap);
  whole->Add(Commands(), 0, wxEXPAND | wxBOTTOM, gap);
  List_Changes = new wxListBox(this, wxID_ANY, wxDefaultPosition,
                               FromDIP(wxSize(kListWidth, kListHeight)), 0, nullptr, wxLB_HSCROLL);
  List_Changes->SetName("List_Changes");
  SetAccessibleName(*List_Changes, ToWx(proc_.Text(text::kSeveralWhat)));
  whole->Add(List_Changes, 1, wxEXPAND);
  SetSizer(whole);
}

// The weekdays above the special days, whose names may be long.
wxSizer* ChangesPanel::Days() {
  auto* const days = new wxBoxSizer(wxVERTICAL);
  wxSizer* row = nullptr;
  for (std::size_t day = 0; day < Check_Day.size(); ++day) {
    if (day % kDaysOfType == 0) {
      const int columns = day == 0 ? static_cast<int>(kDaysOfType) : kSpecialDayColumns;
      row = new wxFlexGridSizer(columns, FromDIP(kGap) / 2, 2 * FromDIP(kGap));
      days->Add(row, 0, wxBOTTOM, FromDIP(kGap) / 2);
    }
    auto*& box = Check_Day.at(day);
    box = new wxCheckBox(this, wxID_ANY,
                         ToWx(DayTypeCaption(static_cast<int>(day) + 1, proc_.texts, dayNames_)));
    box->SetName("Check_Day" + std::to_string(day));
    row->Add(box);
    parts_.emplace_back(ChangeField::Days, box);
  }
  return days;
}

EntryBox* ChangesPanel::NewBox(const char* name, const char* widest, std::int32_t caption,
                               ChangeField field) {
  auto* const label =
      new wxStaticText(this, wxID_ANY, wxControl::RemoveMnemonics(ToWx(proc_.Text(caption))));
  auto* const box = new EntryBox(this, name, widest, true);
  box->SetSpokenName(label->GetLabel());
  boxes_[field] = box;
  parts_.emplace_back(field, label);
  parts_.emplace_back(field, box);
  return box;
}

// The start above the stop. What a kind does not need is hidden and takes no room.
wxSizer* ChangesPanel::Boxes() {
  const int gap = FromDIP(kGap);
  auto* const grid = new wxFlexGridSizer(2 * kBoxColumns, gap, gap);
  OfferDates(*NewBox("Text_From", kDate, text::kReportFrom, ChangeField::FirstDate));
  NewBox("Text_StartTime", kTime, text::kWeekdayCaption + 2, ChangeField::Start);
  OfferValues(*NewBox("Text_Value", kValue, text::kWeekdayCaption + 4, ChangeField::Value));
  OfferDates(*NewBox("Text_To", kDate, text::kReportTo, ChangeField::LastDate));
  NewBox("Text_StopTime", kTime, text::kWeekdayCaption + 3, ChangeField::Stop);
  OfferValues(*NewBox("Text_StopValue", kValue, text::kWeekdayCaption + 5, ChangeField::StopValue));
  auto* const label = new wxStaticText(this, wxID_ANY, ToWx(proc_.Text(text::kReportType)));
  Choice_DayType = new wxChoice(this, wxID_ANY);
  Choice_DayType->SetName("Choice_DayType");
  SetAccessibleName(*Choice_DayType, label->GetLabel());
  for (int type = 1; type <= kCalendarDayTypes; ++type)
    Choice_DayType->Append(ToWx(DayTypeCaption(type, proc_.texts, dayNames_)));
  Choice_DayType->SetSelection(kFirstSpecialDay - 1);
  parts_.emplace_back(ChangeField::Type, label);
  parts_.emplace_back(ChangeField::Type, Choice_DayType);
  constexpr std::size_t ofStart = 6;  // three boxes with their labels
  for (const auto& [field, part] : parts_) {
    if (field == ChangeField::Days) continue;
    if (grid->GetItemCount() == ofStart) {
      grid->AddSpacer(0);  // above the day type, which comes after both dates
      grid->AddSpacer(0);
    }
    grid->Add(part, 0, wxALIGN_CENTER_VERTICAL);
  }
  return grid;
}

void ChangesPanel::OfferDates(EntryBox& box) {
  box.Offer(
      [this, &box] {
        const std::string typed = box.Typed();
        const std::string near = boxes_.at(ChangeField::FirstDate)->Typed();
        return NewDropCalendar(box.Text(), typed.empty() ? near : typed, proc_.texts,
                               [&box](const std::string& date) { box.ShowText(date); });
      },
      {}, false);
}

void ChangesPanel::OfferValues(EntryBox& box) {
  box.Offer(
      [this, &box]() -> DropDown* {
        if (names_.items.empty()) return nullptr;
        std::vector<DropItem> items;
        for (const PickListItem& item : names_.items)
          items.push_back({ToWx(item.name), ToWx(item.value), item.value});
        return NewDropList(box.Text(), std::move(items), 0,
                           [&box](const std::string& value) { box.ShowText(value); });
      },
      {}, false);
}

wxSizer* ChangesPanel::Commands() {
  auto* const row = new wxBoxSizer(wxHORIZONTAL);
  const auto button = [&](const char* name, std::int32_t caption, void (ChangesPanel::*act)()) {
    auto* const command = new wxButton(this, wxID_ANY, ToWx(proc_.Text(caption)));
    command->SetName(name);
    command->Bind(wxEVT_BUTTON, [this, act](wxCommandEvent&) { (this->*act)(); });
    row->Add(command, 0, wxRIGHT, FromDIP(kGap));
    return command;
  };
  Command_Add = button("Command_Add", text::kSeveralAdd, &ChangesPanel::Add);
  Command_Remove = button("Command_Remove", text::kSeveralRemove, &ChangesPanel::Remove);
  return row;
}

ChangeKind ChangesPanel::Kind() const {
  return static_cast<ChangeKind>(Choice_Change->GetSelection());
}

void ChangesPanel::ShowKind() {
  for (const auto& [field, part] : parts_) part->Show(Counts(field, Kind()));
  Mark(ChangeField::Days, {});
}

ChangeEntry ChangesPanel::Entry() const {
  const auto typed = [this](ChangeField field) { return boxes_.at(field)->Typed(); };
  ChangeEntry entry;
  entry.kind = Kind();
  for (std::size_t day = 0; day < Check_Day.size(); ++day)
    if (Check_Day.at(day)->IsChecked()) entry.days.push_back(day);
  entry.firstDate = typed(ChangeField::FirstDate);
  entry.start = typed(ChangeField::Start);
  entry.lastDate = typed(ChangeField::LastDate);
  entry.stop = typed(ChangeField::Stop);
  entry.value = typed(ChangeField::Value);
  entry.stopValue = typed(ChangeField::StopValue);
  entry.type = static_cast<std::int16_t>(Choice_DayType->GetSelection() + 1);
  return entry;
}

bool ChangesPanel::HasEntry() const {
  ChangeEntry entry = Entry();
  entry.kind = added_.kind;  // to choose a kind enters nothing
  return entry != added_;
}

void ChangesPanel::Add() {
  const EnteredChange entered = EnterChange(Entry(), names_, proc_.texts);
  Mark(entered.wrong, entered.why);
  if (!entered.change) return;
  changes_.push_back(*entered.change);
  added_ = Entry();
  ShowChanges(changes_.size() - 1);
}

void ChangesPanel::Remove() {
  const int row = List_Changes->GetSelection();
  if (row == wxNOT_FOUND) return;
  changes_.erase(changes_.begin() + row);
  ShowChanges(static_cast<std::size_t>(row));
}

// Shows what is wrong and leads there; "" removes the mark.
void ChangesPanel::Mark(ChangeField field, const std::string& why) {
  for (const auto& [each, box] : boxes_) box->Mark(each == field ? ToWx(why) : wxString());
  Label_Wrong->SetLabel(ToWx(why));
  Layout();
  if (why.empty()) return;
  const auto box = boxes_.find(field);
  if (box != boxes_.end()) {
    box->second->Focus();
  } else {
    Check_Day.front()->SetFocus();
  }
}

void ChangesPanel::ShowChanges(std::size_t selected) {
  wxArrayString items;
  for (const ListedChange& change : changes_)
    items.Add(ToWx(ChangeInWords(change, proc_.texts, dayNames_, proc_.settings.DecimalSeparator)));
  List_Changes->Set(items);
  if (!changes_.empty())
    List_Changes->SetSelection(static_cast<int>(std::min(selected, changes_.size() - 1)));
  Command_Remove->Enable(!changes_.empty());
  changed_();
}

void ChangesPanel::Enter(PickList names) {
  names_ = std::move(names);
  Choice_Change->SetFocus();
}

}  // namespace zek
