#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/panel.h>

#include "editors/Entry.h"
#include "editors/PickList.h"
#include "lang/LanguageTexts.h"
#include "system/Prompts.h"
#include "ui/EntryBox.h"

namespace zek {

/// The common base of the grids of text boxes. It enters the text of a box when the user leaves it
/// for another control of the form, keeps the focus in a box whose text is refused, and shows
/// names, marks and what there is to choose. Boxes are numbered in the order of their creation.
///
/// A text is not entered when the program loses the focus, nor when the cancel button gets it.
class EntryGrid : public wxPanel {
 public:
  enum class BoxKind { Date, Time, Value };

  struct Parts {
    const LanguageTexts& texts;
    Prompts& prompts;
    std::function<void()> changed;                     // called after every entry
    std::function<void(const std::string& said)> say;  // shows a text in the status line
  };

  /// Enters the text of the box that has the focus. Call it before any other action on the table;
  /// returns false if the text was refused: then do nothing.
  bool TakeEntry();

  /// `HasEntry`: a typed text is not entered yet. `DropEntry` shows the table again.
  bool HasEntry() const;
  void DropEntry();

  /// Several boxes that are chosen together: the corners of a rectangle.
  struct Block {
    std::size_t first;
    std::size_t last;
  };
  /// Ctrl+Shift and the arrow keys choose boxes from the one with the focus, and so does a click
  /// with Shift. Nothing if it is one box alone.
  std::optional<Block> Chosen() const;
  Block AllBoxes() const { return {0, boxes_.size() - 1}; }
  /// Where a block is pasted: at the first of the chosen boxes, else at the box that has the focus
  /// or had it last.
  std::size_t PasteAt() const { return Chosen().value_or(Block{last_, last_}).first; }
  /// Writes into the box that has the focus, as if it was typed; false if there is none.
  bool TypeText(const std::string& text);

 protected:
  /// The boxes lie in rows of `columns`.
  EntryGrid(wxWindow* parent, Parts parts, std::size_t columns);

  /// What comes first: the box, and the text that says so.
  struct Lead {
    std::size_t box;
    std::int32_t text;
  };

  virtual std::string CellText(std::size_t box) const = 0;
  virtual std::string ShownText(std::size_t box) const = 0;  // without the focus
  virtual std::int32_t MarkOf(std::size_t box) const = 0;
  /// Where the calendar of an empty date box opens; "" is today.
  virtual std::string DateNear(std::size_t /*box*/) const { return {}; }
  virtual const PickList& NamesOf(std::size_t box) const = 0;
  virtual std::optional<Lead> LeadOf(std::size_t /*box*/) const { return std::nullopt; }
  virtual bool TakesMidnight(std::size_t /*box*/) const { return true; }  // 00:00
  virtual std::optional<Refusal> EnterText(std::size_t box, const std::string& typed) = 0;
  /// The box got the focus.
  virtual void OnEntered(std::size_t box) = 0;

  EntryBox* NewBox(const std::string& name, const wxString& widest, BoxKind kind, bool editable);
  EntryBox& Box(std::size_t box) const { return *boxes_.at(box); }
  void ShowBoxes();
  /// Moves the focus to a box.
  void FocusBox(std::size_t box);
  std::optional<std::size_t> FocusedBox() const;
  void SelectFocused();

  const LanguageTexts& Texts() const { return parts_.texts; }

 private:
  struct Wrong {
    std::size_t box;
    Refusal refusal;
  };

  void OnChildFocus(wxChildFocusEvent& event);
  void OnTyped(std::size_t box);
  bool BelongsElsewhere(const wxKeyEvent& event);
  void OnWheel(std::size_t box, wxMouseEvent& event);
  bool ChooseByKey(const wxKeyEvent& event);
  void Choose(const std::optional<Block>& corners);
  void Arrive(std::size_t box);
  void SayMark();
  bool Leave(std::size_t box);
  void Refuse(std::size_t box, const Refusal& refusal);
  bool LeadFrom(std::size_t box);
  void ShowBox(std::size_t box);
  DropDown* Drop(std::size_t box, BoxKind kind);
  DropDown* DropNames(std::size_t box, const std::function<void(const std::string&)>& choose);
  DropDown* DropTimes(std::size_t box, const std::function<void(const std::string&)>& choose);

  Parts parts_;
  std::size_t columns_;
  std::vector<EntryBox*> boxes_;
  std::size_t last_ = 0;                // the box that had the focus last
  std::optional<Block> chosen_;         // from the box with the focus; in any direction
  std::optional<std::size_t> entry_;    // the box that the user has not left yet
  std::optional<Wrong> wrong_;          // its text was refused
  std::optional<long> typedElsewhere_;  // when a key was pressed that was meant for another box
  long lastKey_ = 0;                    // when the last key was pressed, in ms
  int wheel_ = 0;                       // what the wheel turned, less than a step
  bool blocked_ = false;                // a button was pressed in order to leave a refused text
};

}  // namespace zek
