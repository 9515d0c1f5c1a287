#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include <wx/gbsizer.h>
#include <wx/panel.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "editors/ExceptionEditor.h"
#include "editors/PickList.h"

namespace zek {

/// The grid of the exception editor: all eight rows, six boxes each. It passes entries to the
/// editor and shows the resulting table.
class OvcGrid final : public wxPanel {
 public:
  struct Parts {
    const LanguageTexts& texts;
    Prompts& prompts;
    const PickList& pickList;       // offered by the value boxes
    std::function<void()> changed;  // called after every entry
  };

  OvcGrid(wxWindow* parent, ExceptionEditor& editor, Parts parts);

  void ShowRow(std::size_t row);

  /// Enters the text of the focused box. Call it before any other action on the table.
  void TakeEntry();

  /// `HasEntry`: the row of the focused box differs from the table. `DropEntry` shows the table
  /// again.
  bool HasEntry() const;
  void DropEntry();

  /// Reports the wrong entries since the last call; returns false if there were none.
  bool TellWrong();

  void Focus(ExceptionFocus at);
  /// Moves the focus to the box that had it last.
  void FocusLast() { Focus(last_); }

  /// Handles Enter; returns false for any other key.
  bool TakeKey(int key);

 private:
  static constexpr std::size_t kLabels = 11;

  void BuildLabels();
  void BuildBoxes();
  wxTextCtrl* NewBox(ExceptionFocus at);
  void NameBoxes(std::size_t row);
  void LayOut();
  wxTextCtrl& Box(ExceptionFocus at) const;
  void SelectFocused();
  std::optional<ExceptionFocus> FocusedBox() const;
  ExceptionTexts Typed(std::size_t row) const;
  void Enter(ExceptionFocus at, const ExceptionTexts& typed);
  void OnEntered(ExceptionFocus at);

  ExceptionEditor& editor_;
  Parts parts_;
  std::array<wxStaticText*, kLabels> Label_Info{};
  std::array<wxStaticText*, kExceptionRows> rowLabels_{};
  /// `Text_DateOn`, `Text_Start`, `Text_ValueOn`, `Text_DateOff`, `Text_Stop` and `Text_ValueOff`,
  /// by row.
  std::array<std::array<wxTextCtrl*, kExceptionBoxes>, kExceptionRows> boxes_{};
  ExceptionFocus last_;
  std::optional<std::size_t> marked_;  // the row that is highlighted
  std::vector<WrongEntry> wrong_;      // not reported yet
};

}  // namespace zek
