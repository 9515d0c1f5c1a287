#pragma once

#include <functional>
#include <vector>

#include <wx/eventfilter.h>
#include <wx/weakref.h>
#include <wx/window.h>

namespace zek {

/// While it exists, blocks the user's keys, clicks, menu choices and close requests in the forms
/// that were open when it began. They are still painted. Escape and a close request there call
/// `onEscape`. The mouse works on `free`, the cancel button; the about box and every dialog or
/// message box that opens meanwhile work as usual.
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
  bool IsForBlocked(const wxEvent& event) const;

  std::function<void()> onEscape_;
  const wxWindow* free_;
  std::vector<wxWeakRef<wxWindow>> blocked_;
  bool closeRequested_ = false;
  bool keyReleased_ = false;  // a key was released since the block began
};

}  // namespace zek
