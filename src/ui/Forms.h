#pragma once

#include <functional>
#include <memory>
#include <string>

#include <wx/toplevel.h>
#include <wx/window.h>

namespace zek {

/// Centres a form on its screen, no coordinate below 0.
void CenterForm(wxTopLevelWindow& form);

/// Places a form above all other windows, or takes that back.
void SetTopmost(wxTopLevelWindow& form, bool on);

/// Gives the form the size and place that it had when it was last open, and remembers those when
/// it closes. `name` is the form's own ("ZV_Main"). A form without a memory is centred.
void RememberPlacement(wxTopLevelWindow& form, const std::string& name);

/// The font of all text boxes and of the log: fixed pitch.
wxFont FixedFont();

/// Calls `refresh` soon after `Request`, however often that is called: at most once a frame.
class FrameRefresh {
 public:
  explicit FrameRefresh(std::function<void()> refresh);
  void Request();

 private:
  class Timer;
  std::shared_ptr<Timer> timer_;
};

}  // namespace zek
