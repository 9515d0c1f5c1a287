#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/button.h>
#include <wx/gauge.h>
#include <wx/stattext.h>

#include "app/ControlCatalogues.h"
#include "app/OpenedFindings.h"
#include "app/ZV_Proc.h"
#include "editors/EditedCatalogue.h"
#include "editors/UndoHistory.h"
#include "forecast/Schedule.h"
#include "forms/EntryGrid.h"
#include "forms/OpenedNote.h"
#include "ui/FormDialog.h"
#include "ui/Mnemonics.h"
#include "wxbase/WxTurn.h"

namespace zek {

/// The common base of the three catalogue editors' windows. It provides
/// - a status line with the progress of the transfer,
/// - "Spara" (and Ctrl+S), which blocks the window while the catalogue is written,
/// - undo and redo (Ctrl+Z, Ctrl+Y),
/// - the number of findings in the edited catalogue, and their list,
/// - what applies with the table as it is edited (F9),
/// - who else has the catalogue open,
/// - "*" before the title while there are unsaved changes, and a question before they are lost.
class EditorForm : public FormDialog {
 public:
  /// Shows the progress of the transfer and the current wait.
  void ShowStatus();
  /// Sets the focus for the next entry when the form becomes usable again.
  virtual void FocusEntry() = 0;
  /// Moves the focus to an entry.
  virtual void GoTo(const EntryPlace& place) = 0;
  /// Ends what must not outlive the session.
  bool Destroy() override;

 protected:
  struct Kind {
    std::string name;                // identifies the form ("ZV_WDC")
    bool viewOnly = false;           // nothing can be saved
    bool closesWhenGivenUp = false;  // closes if a write fails and the user declines a retry
  };

  EditorForm(wxWindow* parent, ZV_Proc& proc, WxTurn& turn, Catalogue catalogue,
             const CatalogueContent& content, const Kind& kind);

  /// `TakeEntry` enters the text typed into the focused box; false if it was refused. `DropEntry`
  /// restores the old text.
  virtual bool TakeEntry() { return true; }
  virtual void DropEntry() {}
  /// True if the focused box contains typed text that is not entered yet.
  virtual bool HasEntry() const { return false; }
  /// The state of the changes, and undo and redo, which move the focus to the change.
  virtual EditState State() const = 0;
  virtual void Undo() = 0;
  virtual void Redo() = 0;
  /// Where the last change was that was undone or redone, for the status line.
  virtual std::string PlaceName() const = 0;
  /// The catalogue to save; empty if it can't be saved, after a message.
  virtual std::optional<EditedCatalogue> Edited() = 0;
  /// The table as it is edited, and the findings that only the editor knows.
  virtual EditedTable Edits() const = 0;
  virtual std::vector<Finding> OwnFindings() const { return {}; }
  /// Puts the edited table into a schedule.
  virtual void PutEdited(Schedule& schedule) const = 0;
  /// Ctrl+C and Ctrl+V; false leaves the key to the box that has the focus.
  virtual bool TakeCopy() { return false; }
  virtual bool TakePaste() { return false; }
  /// Handles a key without modifiers; returns false if the form does not use it.
  virtual bool TakeKey(int /*key*/) { return false; }

  /// Creates a button. `changes` marks one that edits; it is disabled in a view-only form.
  wxButton* NewCommand(wxWindowID id, const std::string& name, const wxString& caption,
                       const wxString& toolTip, bool changes);
  /// Create the buttons for saving; for undo, redo and what applies; for the list of findings.
  wxButton* NewSave(const wxString& caption, const wxString& toolTip);
  wxSizer* NewUndoAndRedo(Mnemonics& letters);
  void NewFindings(Mnemonics& letters);
  wxWindow* FindingsButton() const { return list_; }
  /// Updates title and buttons: is there anything to save, undo or redo? Call it after every change
  /// of the table. Typing in a box needs no call.
  void ShowChanges();
  /// Disables `part` while a catalogue is written; `usable` is its state otherwise.
  void BlockWhileBusy(wxWindow* part, bool usable = true);
  /// Lays out the form with the status line below `content`; restores its size and position.
  void LayOut(wxSizer* content);

  wxString Caption(int number) const;
  /// Shows a text in the status line while no transfer runs.
  void Say(const std::string& said);
  /// What a grid of text boxes needs; `changed` is called after every entry.
  EntryGrid::Parts PartsOfGrid(std::function<void()> changed);
  /// Call it when a box above the form has closed: returns false if the form is about to end;
  /// otherwise gives it the focus.
  bool AfterBox();
  void Save();

  ZV_Proc& proc_;

 private:
  struct Part {
    wxWindow* window;
    bool usable;  // while no catalogue is written
  };

  void ShowBusy(bool busy);
  void ShowSent();
  void Allow(wxWindow* part, bool usable);
  void OfferCancel();
  void OnCancel(wxCommandEvent& event);
  void CancelLater();
  void OnKey(wxKeyEvent& event);
  void OnClose(wxCloseEvent& event);
  void StepBack();
  void StepForward();
  bool IsUnsaved() const;
  bool CanSave() const;
  SaveOutcome SaveEdited();
  OpenedFindings& Findings();
  void OnIdle(wxIdleEvent& event);
  void ShowCount();
  void ListFindings();
  void CloseOrStay();
  void End();
  void WhatApplies();
  void ShowWhatApplies(const ControlCatalogues& catalogues);

  WxTurn& turn_;
  CatalogueId id_;
  CatalogueContent content_;  // as it was opened
  std::optional<OpenedFindings> findings_;
  bool viewOnly_;
  bool closesWhenGivenUp_;
  std::vector<Part> parts_;
  wxStaticText* status_;
  OpenedNote* opened_;
  wxGauge* sent_;     // of the lines; only while they are sent
  std::string said_;  // for the status line
  wxString title_;
  wxButton* save_ = nullptr;
  wxButton* undo_ = nullptr;
  wxButton* redo_ = nullptr;
  wxButton* list_ = nullptr;
  wxString count_;  // the caption of that button, with %1 for the number
  bool busy_ = false;
  bool fromCopy_;         // opened on the local copy, which may never have been sent
  bool givenUp_ = false;  // a write failed: the copy is stored, the controller lacks it
  bool ended_ = false;    // ended by force under a box, which must go first
  bool asking_ = false;   // a question about closing is open
};

/// Shows the form until it is closed, then destroys it. Once the form is visible, calls `opened`
/// and goes to an entry.
void ShowEditorForm(EditorForm* form, ZV_Proc& proc, const std::optional<EntryPlace>& at,
                    std::function<void()> opened);

}  // namespace zek
