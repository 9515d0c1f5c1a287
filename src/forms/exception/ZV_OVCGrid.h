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

/// The grid of the exception editor: all eight rows, six boxes each. It passes entries on to the
/// editor and shows what that makes of them.
class OvcGrid final : public wxPanel {
 public:
  struct Parts {
    const LanguageTexts& texts;
    Prompts& prompts;
    const PickList& pickList;       // offered on the value boxes
    std::function<void()> changed;  // called after every entry
  };

  OvcGrid(wxWindow* parent, ExceptionEditor& editor, Parts parts);

  void ShowRow(std::size_t row);

  /// Takes what was typed into the focused box before something else is done with the table.
  void TakeEntry();

  /// True when the row of the focused box holds something else than the table; what it held is
  /// shown again.
  bool HasEntry() const;
  void DropEntry();

  /// Tells what was wrong in the entries since the last time; false when nothing was.
  bool TellWrong();

  void Focus(ExceptionFocus at);
  /// Puts the focus into the box that had it last.
  void FocusLast() { Focus(last_); }

  /// The Enter key; false for any other key.
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
  std::optional<std::size_t> marked_;  // the row that is shown as the current one
  std::vector<WrongEntry> wrong_;      // not told yet
};

}  // namespace zek
