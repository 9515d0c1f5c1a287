#pragma once

#include <optional>

#include <wx/statbox.h>
#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/ExceptionEditor.h"
#include "forecast/EditedEntries.h"
#include "forms/BoxClipboard.h"
#include "forms/EditorForm.h"
#include "forms/exception/ZV_OVCGrid.h"
#include "ui/Mnemonics.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The exception editor's window. The rules are in `ExceptionEditor`, which must outlive it.
class ZV_OVC final : public EditorForm {
 public:
  ZV_OVC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
         ExceptionEditor& editor);

 private:
  void Build();
  void Arrange();
  void Erase();
  void ShowAt(const std::optional<ExceptionFocus>& changed);
  BoxClipboard::Parts ClipboardParts();
  void Paste(const std::string& text);

  bool TakeEntry() override { return grid_->TakeEntry(); }
  void DropEntry() override { grid_->DropEntry(); }
  bool HasEntry() const override { return grid_->HasEntry(); }
  EditState State() const override { return editor_.State(); }
  void Undo() override { ShowAt(editor_.Undo()); }
  void Redo() override { ShowAt(editor_.Redo()); }
  std::string PlaceName() const override;
  void PutEdited(Schedule& schedule) const override { PutExceptions(schedule, editor_.Table()); }
  std::optional<EditedCatalogue> Edited() override { return editor_.Edited(proc_.Numbers()); }
  void FocusEntry() override { grid_->FocusLast(); }
  void GoTo(const EntryPlace& place) override;
  EditedTable Edits() const override { return editor_.Table(); }
  bool TakeCopy() override { return clipboard_->Copy(); }
  bool TakePaste() override { return clipboard_->Paste(); }
  bool TakeKey(int key) override { return grid_->TakeKey(key); }

  ExceptionEditor& editor_;
  wxStaticBox* Frame_OVC = nullptr;
  OvcGrid* grid_ = nullptr;
  std::optional<BoxClipboard> clipboard_;
  wxButton* Command_Erase = nullptr;
  wxButton* Command_CopyPaste = nullptr;
  wxSizer* undoAndRedo_ = nullptr;
  wxButton* Command_Ok = nullptr;
  wxButton* Command_Cancel = nullptr;
};

/// Opens `ZV_OVC`, the exception editor, on an exception catalogue of the selected node. The user
/// can edit it, and "Spara" writes it. Modal: returns when the editor is closed.
/// It first goes to `at`.
void ShowExceptionForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn,
                       const CatalogueContent& content, const std::optional<EntryPlace>& at = {});

}  // namespace zek
