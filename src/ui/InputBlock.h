#pragma once

#include <functional>
#include <set>

#include <wx/dialog.h>
#include <wx/eventfilter.h>

namespace zek {

/// For its own life it keeps the user's keys, clicks, menu choices and close requests from every
/// window of the program, while the windows go on painting. Escape and a wish to close call
/// `onEscape`. A dialog or message box that is opened meanwhile works as usual, and so does the
/// mouse on `free`, the button that cancels.
///
/// Disabled windows would not do: a text box in one still takes keys on some systems.
class InputBlock final : private wxEventFilter {
 public:
  explicit InputBlock(std::function<void()> onEscape, const wxWindow* free = nullptr);
  InputBlock(const InputBlock&) = delete;
  InputBlock& operator=(const InputBlock&) = delete;
  ~InputBlock() override;

  /// The user asked meanwhile to close a window. Act on it when the work is done: a window must
  /// not go while a wait that began in it is still running.
  bool CloseRequested() const { return closeRequested_; }

 private:
  int FilterEvent(wxEvent& event) override;
  bool IsSuspended() const;

  std::function<void()> onEscape_;
  const wxWindow* free_;
  std::set<const wxDialog*> dialogsBefore_;  // modal already when the block began
  bool closeRequested_ = false;
  bool keyReleased_ = false;  // since the block began
};

}  // namespace zek
