#pragma once

#include <array>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include "app/WxTurn.h"
#include "app/ZV_Proc.h"
#include "editors/weekday/WeekdayEditor.h"
#include "editors/weekday/ZV_WDCGrid.h"
#include "ui/Mnemonics.h"

namespace zek {

/// The weekday editor's window. The rules are the editor's, which it borrows.
class ZV_WDC final : public wxDialog {
 public:
  ZV_WDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, WeekdayEditor& editor);

  /// Shows what is transferred and waited for.
  void ShowStatus();

 private:
  void Build();
  void BuildFrames(Mnemonics& letters);
  void BuildCommands(Mnemonics& letters);
  void LayOut();
  wxString Caption(int number) const;
  wxString TypeCaption(std::size_t type) const;
  void BindEvents();
  void ShowTypeCaptions();
  void ShowBusy(bool busy);
  void Change(std::size_t (WeekdayEditor::*change)());
  void OnKey(wxKeyEvent& event);
  void Save();

  ZV_Proc& proc_;
  WxTurn& turn_;
  WeekdayEditor& editor_;
  wxStaticBox* Frame_WDC = nullptr;
  WeekdayGrid* grid_ = nullptr;
  wxStaticBox* Frame_Type = nullptr;
  std::array<wxRadioButton*, 2> Option_Type{};
  std::array<std::size_t, 2> optionLetters_{};  // where the "&" of each caption stands
  wxButton* Command_Copy = nullptr;
  wxButton* Command_Erase = nullptr;
  wxButton* Command_Ok = nullptr;
  wxButton* Command_Cancel = nullptr;
  wxStaticText* status_ = nullptr;
  bool busy_ = false;
};

}  // namespace zek
