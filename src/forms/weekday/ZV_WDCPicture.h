#pragma once

#include <functional>
#include <optional>
#include <string>

#include "editors/WeekdayEditor.h"
#include "forms/SceneView.h"
#include "picture/SceneWords.h"

namespace zek {

/// The picture of the weekday editor: the days of the type that is shown, a bar for each row. It
/// shows the editor's table, and what the user does to a bar is handed to the form.
///
/// A bar's ends are moved by mouse, in steps of 5 minutes, with Shift of 1. By keyboard, Space
/// takes hold of the start, and again of the stop; the arrows move it, Enter ends that. Escape
/// gives up. What is moved by keyboard and not ended yet is an entry like typed text.
class WeekPicture final : public SceneView {
 public:
  struct Parts {
    std::function<bool()> mayBegin;  // false: something typed is refused
    std::function<void()> chosen;    // the editor's row or column was changed
    std::function<void()> enter;     // the user wants to type into that row
    std::function<void(bool stop, std::int16_t minute)> moved;  // a new time for that row
    std::function<void(const std::string&)> say;
  };

  WeekPicture(wxWindow* parent, WeekdayEditor& editor, SceneWords words, Parts parts);

  /// Shows the editor's table, and its row and column as the current bar.
  void ShowTable();

  /// `IsMoving`: an end is being moved. `FinishMove` enters what the keyboard moved; what the mouse
  /// moves is given up. `GiveUp` returns false if nothing was being moved.
  bool IsMoving() const { return move_.has_value(); }
  void FinishMove();
  bool GiveUp();

 private:
  // An end of the current bar that is being moved.
  struct Move {
    bool stop = false;
    int minute = 0;
    int begin = 0;  // where it was
    bool byMouse = false;
    bool held = false;  // by mouse: not moved yet
  };
  // An end of any bar.
  struct End {
    std::size_t bar = 0;
    bool stop = false;
  };

  bool TakeKey(int key, int modifiers) override;
  void OnPress(const wxPoint& at) override;
  void OnHover(const wxPoint& at) override;
  void OnRelease(const wxPoint& at) override;
  bool TakeMoveKey(int key, int modifiers);
  bool Choose(std::size_t bar);
  bool Take(bool stop, bool byMouse);
  void MoveTo(int minute);
  void EndMove();
  std::optional<End> EndUnder(const wxPoint& at) const;
  std::optional<bool> StopUnder(std::size_t bar, const wxPoint& at) const;
  const WeekdayRow& RowNow() const;

  WeekdayEditor& editor_;
  SceneWords words_;
  Parts parts_;
  std::optional<Move> move_;
  wxPoint pressed_;       // where the mouse took hold of an end
  bool clicked_ = false;  // a bar was pressed, the mouse is still down
};

}  // namespace zek
