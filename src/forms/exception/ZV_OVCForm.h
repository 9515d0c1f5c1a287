#pragma once

#include <optional>

#include <wx/statbox.h>

#include "editors/ExceptionEditor.h"
#include "forms/EditorForm.h"
#include "forms/exception/ZV_OVCGrid.h"
#include "ui/Mnemonics.h"

namespace zek {

/// The exception editor's window. The rules are the editor's, which it borrows.
class ZV_OVC final : public EditorForm {
 public:
  ZV_OVC(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, const CatalogueContent& content,
         ExceptionEditor& editor, const PickList& pickList);

 private:
  void Build(const PickList& pickList);
  void Arrange();
  void Erase();
  void ShowAt(const std::optional<ExceptionFocus>& changed);

  void TakeEntry() override { grid_->TakeEntry(); }
  void DropEntry() override { grid_->DropEntry(); }
  bool HasEntry() const override { return grid_->HasEntry(); }
  bool TellWrong() override { return grid_->TellWrong(); }
  EditState State() const override { return editor_.State(); }
  void Undo() override { ShowAt(editor_.Undo()); }
  void Redo() override { ShowAt(editor_.Redo()); }
  std::optional<EditedCatalogue> Edited() override;
  void FocusEntry() override { grid_->FocusLast(); }
  bool TakeKey(int key) override { return grid_->TakeKey(key); }

  ExceptionEditor& editor_;
  wxStaticBox* Frame_OVC = nullptr;
  OvcGrid* grid_ = nullptr;
  wxButton* Command_Erase = nullptr;
  wxSizer* undoAndRedo_ = nullptr;
  wxButton* Command_Ok = nullptr;
  wxButton* Command_Cancel = nullptr;
};

}  // namespace zek
