#pragma once

#include <array>
#include <optional>

#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/WeekdayEditor.h"
#include "forecast/EditedEntries.h"
#include "forms/BoxClipboard.h"
#include "forms/EditorForm.h"
#include "forms/weekday/ZV_WDCGrid.h"
#include "forms/weekday/ZV_WDCPicture.h"
#include "paste/WeekdayBlock.h"
#include "ui/Mnemonics.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The weekday editor's window. The rules are in `WeekdayEditor`, which must outlive the window.
class ZV_WDC final : public EditorForm {
 public:
  ZV_WDC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
         WeekdayEditor& editor);

 private:
  void Build();
  void BuildFrames(Mnemonics& letters);
  void BuildCommands(Mnemonics& letters);
  void Arrange();
  wxString TypeCaption(std::size_t type) const;
  void BindEvents();
  void ShowTypeCaptions();
  void BuildPicture(Mnemonics& letters);
  void ShowPicture(bool on);
  void MoveEnd(bool stop, std::int16_t minute);
  void Change(std::size_t (WeekdayEditor::*change)());
  void ShowAt(const std::optional<WeekdayFocus>& changed);
  BoxClipboard::Parts ClipboardParts();
  WeekdayBoxAt BoxAt(std::size_t box) const;
  void ShowCopyMenu();
  void CopyToOtherDays();
  void Paste(const std::string& text);
  void PasteCatalogue(const std::string& text);
  void Take(const EditedWeekdays& edited, const std::string& said);

  bool TakeEntry() override;
  void DropEntry() override;
  bool HasEntry() const override;
  EditState State() const override { return editor_.State(); }
  void Undo() override { ShowAt(editor_.Undo()); }
  void Redo() override { ShowAt(editor_.Redo()); }
  std::string PlaceName() const override { return editor_.PlaceName(proc_.texts); }
  void PutEdited(Schedule& schedule) const override { PutWeekdays(schedule, editor_.Table()); }
  std::optional<EditedCatalogue> Edited() override;
  void FocusEntry() override { grid_->FocusStart(editor_.Column()); }
  void GoTo(const EntryPlace& place) override;
  EditedTable Edits() const override { return editor_.Table(); }
  std::vector<Finding> OwnFindings() const override;
  bool TakeCopy() override { return clipboard_->Copy(); }
  bool TakePaste() override;
  bool TakeKey(int key) override { return !picture_->IsMoving() && grid_->TakeKey(key); }

  /// In section "General": whether the picture is shown.
  static constexpr const char* kPictureKey = "WeekPicture";

  WeekdayEditor& editor_;
  wxStaticBox* Frame_WDC = nullptr;
  WeekdayGrid* grid_ = nullptr;
  WeekPicture* picture_ = nullptr;
  std::optional<BoxClipboard> clipboard_;
  wxCheckBox* Check_Picture = nullptr;
  wxStaticBox* Frame_Type = nullptr;
  std::array<wxRadioButton*, 2> Option_Type{};
  std::array<std::size_t, 2> optionLetters_{};  // position of the "&" in each caption
  wxButton* Command_Copy = nullptr;
  wxButton* Command_Erase = nullptr;
  wxButton* Command_CopyPaste = nullptr;
  wxSizer* undoAndRedo_ = nullptr;
  wxButton* Command_Ok = nullptr;
  wxButton* Command_Cancel = nullptr;
};

/// Opens `ZV_WDC`, the weekday editor, on a weekday catalogue of the selected node. The user can
/// edit it, and "Spara" writes it. Modal: returns when the editor is closed.
/// It first goes to `at`.
void ShowWeekdayForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
                     const std::optional<EntryPlace>& at = {});

}  // namespace zek
