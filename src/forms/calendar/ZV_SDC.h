#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/CalendarEditor.h"
#include "forecast/EditedEntries.h"
#include "forms/EditorForm.h"
#include "forms/calendar/ZV_Import.h"
#include "forms/calendar/ZV_SDCDays.h"
#include "forms/calendar/ZV_SDCYear.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The calendar editor's window. The rules are in `CalendarEditor`, which must outlive the window.
class ZV_SDC final : public EditorForm {
 public:
  ZV_SDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
         CalendarEditor& editor);

  /// Moves the focus to the month or the year.
  void FocusEntry() override { Days()->SetFocus(); }
  void GoTo(const EntryPlace& place) override;

 private:
  static constexpr std::size_t kDayTypes = kCalendarDayTypes + 1;

  void PutEdited(Schedule& schedule) const override { PutCalendar(schedule, editor_.Table()); }
  std::optional<EditedCatalogue> Edited() override { return editor_.Edited(); }
  EditState State() const override { return editor_.State(); }
  EditedTable Edits() const override { return editor_.Table(); }
  std::string PlaceName() const override { return editor_.MonthText(proc_.texts); }
  void Undo() override;
  void Redo() override;

  void Build();
  void BuildGrid();
  void BuildDayTypes();
  void BuildYearsAndMonths();
  void BuildYearView();
  wxStaticBox* NewFrame(const std::string& name, int captionText, bool usable = true);
  wxSizer* GridContent();
  wxSizer* DayTypeContent();
  void BindEvents();
  wxWindow* Days() const;
  /// Shows twelve months or one.
  void ShowYearView(bool year);
  /// A button that opens `ZV_Import`.
  wxButton* NewImport(const std::string& name, int caption, DateSource source);
  void BuildAccelerators();
  /// Shows the editor's state in the grid and in the options beside it.
  void ShowAll();

  CalendarEditor& editor_;
  Mnemonics letters_;
  wxStaticBox* Frame_SDC = nullptr;
  wxButton* Command_Last = nullptr;
  wxStaticText* month_ = nullptr;
  wxButton* Command_Next = nullptr;
  DayGrid* Picture_Days = nullptr;
  YearGrid* Picture_Year = nullptr;
  wxButton* Command_Year = nullptr;
  std::vector<wxSizer*> ofMonth_;  // what only the view of one month shows
  bool yearView_ = false;
  std::array<wxString, 2> yearCaptions_;  // of the button in either view
  wxStaticText* hint_ = nullptr;
  std::array<wxString, 2> hints_;  // in either view
  wxStaticBox* Frame_Day = nullptr;
  std::array<wxRadioButton*, kDayTypes> Option_Day{};
  wxStaticBox* Frame_Year = nullptr;
  std::array<wxRadioButton*, kCalendarYears> Option_Year{};
  wxStaticBox* Frame_Month = nullptr;
  std::array<wxRadioButton*, kMonthsOfYear> Option_Month{};
  wxSizer* undoAndRedo_ = nullptr;
  wxButton* Command_Ok = nullptr;
  wxButton* Command_Cancel = nullptr;
};

/// Opens `ZV_SDC`, the calendar editor, on the special-day calendar of the selected node. The user
/// can edit it, and "Spara" writes it. Modal: returns when the editor is closed.
/// It first goes to `at`.
void ShowCalendarForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                      const CatalogueContent& content, const std::optional<EntryPlace>& at = {});

}  // namespace zek
