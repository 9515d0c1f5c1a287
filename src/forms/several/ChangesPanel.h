#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/listbox.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "app/ZV_Proc.h"
#include "formats/WeekdayTable.h"
#include "plan/ChangeEntry.h"
#include "settings/SpecialDayNames.h"
#include "ui/EntryBox.h"

namespace zek {

/// The second step: changes are entered by the rules of the editors and put into a list, in whose
/// order they apply.
class ChangesPanel final : public wxPanel {
 public:
  ChangesPanel(wxWindow* parent, const ZV_Proc& proc, std::function<void()> changed);

  const std::vector<ListedChange>& Changes() const { return changes_; }
  /// True if something was entered into the boxes since a change was added.
  bool HasEntry() const;
  /// The button that Enter presses.
  wxButton& AddButton() { return *Command_Add; }

  /// `names` are the values to choose.
  void Enter(PickList names);

 private:
  void Build();
  wxSizer* Days();
  wxSizer* Boxes();
  wxSizer* Commands();
  EntryBox* NewBox(const char* name, const char* widest, std::int32_t caption, ChangeField field);
  void OfferDates(EntryBox& box);
  void OfferValues(EntryBox& box);
  ChangeKind Kind() const;
  void ShowKind();
  ChangeEntry Entry() const;
  void Add();
  void Remove();
  void Mark(ChangeField field, const std::string& why);
  void ShowChanges(std::size_t selected);

  const ZV_Proc& proc_;
  std::function<void()> changed_;
  SpecialDayNames dayNames_;  // of all objects
  PickList names_;
  std::vector<ListedChange> changes_;
  ChangeEntry added_;  // what the boxes had then, or at first
  wxChoice* Choice_Change = nullptr;
  std::array<wxCheckBox*, kWeekdayDays> Check_Day{};
  wxChoice* Choice_DayType = nullptr;
  std::map<ChangeField, EntryBox*> boxes_;
  std::vector<std::pair<ChangeField, wxWindow*>> parts_;  // shown where their field counts
  wxButton* Command_Add = nullptr;
  wxButton* Command_Remove = nullptr;
  wxStaticText* Label_Wrong = nullptr;
  wxListBox* List_Changes = nullptr;
};

}  // namespace zek
