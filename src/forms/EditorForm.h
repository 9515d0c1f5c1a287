#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/stattext.h>

#include "app/ZV_Proc.h"
#include "editors/SaveWithRetry.h"
#include "editors/UndoHistory.h"
#include "ui/Mnemonics.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// What the windows of the three catalogue editors share: a status line that shows what is
/// transferred, "Spara" (and Ctrl+S) with the window blocked while a catalogue is written, undo and
/// redo (Ctrl+Z, Ctrl+Y), "*" before the title of what is not saved, a question before it is lost.
class EditorForm : public wxDialog {
 public:
  /// Shows what is transferred and waited for.
  void ShowStatus();
  /// Puts the focus where it belongs when the form can be used again, ready for an entry.
  virtual void FocusEntry() = 0;

 protected:
  struct Kind {
    std::string name;                // the form's own ("ZV_WDC")
    int titleText = 0;               // of its title; the time control is added
    bool viewOnly = false;           // nothing can be saved
    bool closesWhenGivenUp = false;  // after a write that failed and was not wanted again
  };

  EditorForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, Catalogue catalogue,
             const CatalogueContent& content, const Kind& kind);

  /// Takes what was typed into the box that has the focus, or shows there again what it held.
  virtual void TakeEntry() {}
  virtual void DropEntry() {}
  /// True when something was typed there that is not taken yet.
  virtual bool HasEntry() const { return false; }
  /// Tells of an entry that was not taken as it was typed; false when there was none.
  virtual bool TellWrong() { return false; }
  /// What the editor has, and its undo and redo, shown with the focus where the change was.
  virtual EditState State() const = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  /// What is to be saved; nothing when it can't be, which was shown.
  virtual std::optional<EditedCatalogue> Edited() = 0;
  /// A key without modifiers; false for one that means nothing to the form.
  virtual bool TakeKey(int /*key*/) { return false; }

  /// A button of the form; `changes` tells that it has no use in a form that is for viewing only.
  wxButton* NewCommand(wxWindowID id, const std::string& name, const wxString& caption,
                       const wxString& toolTip, bool changes);
  /// The buttons for saving, undo and redo.
  wxButton* NewSave(const wxString& caption, const wxString& toolTip);
  wxSizer* NewUndoAndRedo(Mnemonics& letters);
  /// Shows by title and buttons what there is to be saved, undone and redone. To be called after
  /// every change of the table; typing in a box is seen without.
  void ShowChanges();
  /// `part` can't be used while a catalogue is written.
  void BlockWhileBusy(wxWindow* part, bool usable = true);
  /// Lays out the form with the status line below `content`, at its remembered place.
  void LayOut(wxSizer* content);

  wxString Caption(int number) const;
  void Save();

  ZV_Proc& proc_;

 private:
  struct Part {
    wxWindow* window;
    bool usable;  // when nothing is written
  };

  void ShowBusy(bool busy);
  void Allow(wxWindow* part, bool usable);
  void OfferCancel();
  void OnCancel(wxCommandEvent& event);
  void OnKey(wxKeyEvent& event);
  void OnClose(wxCloseEvent& event);
  void StepBack();
  void StepForward();
  bool IsUnsaved() const;
  bool CanSave() const;
  SaveOutcome SaveEdited();
  void CloseOrStay();
  void End();

  WxTurn& turn_;
  CatalogueId id_;
  std::optional<std::string> dfv_;  // the value that came with the catalogue
  bool viewOnly_;
  bool closesWhenGivenUp_;
  std::vector<Part> parts_;
  wxStaticText* status_;
  wxString title_;
  wxButton* save_ = nullptr;
  wxButton* undo_ = nullptr;
  wxButton* redo_ = nullptr;
  bool busy_ = false;
  bool fromCopy_;         // the controller may never have got what the form was opened on
  bool givenUp_ = false;  // a write was; the local copy has what the controller lacks
  bool asking_ = false;   // whether to close
};

/// Shows the form until it is closed and destroys it. `opened` is called when it is on the screen.
void ShowEditorForm(EditorForm* form, ZV_Proc& proc, std::function<void()> opened);

}  // namespace zek
