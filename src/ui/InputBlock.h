#pragma once

#include <functional>
#include <set>

#include <wx/dialog.h>
#include <wx/eventfilter.h>

namespace zek {

/// While it exists, blocks the user's keys, clicks, menu choices and close requests in every
/// window of the program. The windows are still painted. Escape and a close request call
/// `onEscape`. A dialog or message box that opens meanwhile works as usual. So does the mouse on
/// `free`, the cancel button.
///
/// Disabling the windows is not enough: on some systems a text box in a disabled window still
/// accepts keys.
class InputBlock final : private wxEventFilter {
 public:
  explicit InputBlock(std::function<void()> onEscape, const wxWindow* free = nullptr);
  InputBlock(const InputBlock&) = delete;
  InputBlock& operator=(const InputBlock&) = delete;
  ~InputBlock() override;

  /// True if the user asked to close a window meanwhile. Act on it when the work is done: a window
  /// must not be destroyed while a wait that began in it is still running.
  bool CloseRequested() const { return closeRequested_; }

 private:
  int FilterEvent(wxEvent& event) override;
  bool IsSuspended() const;

  std::function<void()> onEscape_;
  const wxWindow* free_;
  std::set<const wxDialog*> dialogsBefore_;  // already modal when the block began
  bool closeRequested_ = false;
  bool keyReleased_ = false;  // a key was released since the block began
};

}  // namespace zek
