#pragma once

#include <array>
#include <string>

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/CalendarEditor.h"
#include "forms/EditorForm.h"
#include "forms/calendar/ZV_Import.h"
#include "forms/calendar/ZV_SDCDays.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The calendar editor's window. The rules are in `CalendarEditor`, which must outlive the window.
class ZV_SDC final : public EditorForm {
 public:
  ZV_SDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
         CalendarEditor& editor);

  /// Moves the focus to the month grid.
  void FocusEntry() override { Picture_Days->SetFocus(); }

 private:
  static constexpr std::size_t kDayTypes = kCalendarDayTypes + 1;

  std::optional<EditedCatalogue> Edited() override { return editor_.Edited(); }
  EditState State() const override { return editor_.State(); }
  std::string PlaceName() const override { return editor_.MonthText(proc_.texts); }
  void Undo() override;
  void Redo() override;

  void Build();
  void BuildGrid();
  void BuildDayTypes();
  void BuildYearsAndMonths();
  wxStaticBox* NewFrame(const std::string& name, int captionText, bool usable = true);
  wxSizer* GridContent();
  wxSizer* DayTypeContent();
  void BindEvents();
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
void ShowCalendarForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                      const CatalogueContent& content);

}  // namespace zek
