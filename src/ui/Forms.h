#pragma once

#include <functional>
#include <memory>
#include <string>

#include <wx/button.h>
#include <wx/gdicmn.h>
#include <wx/toplevel.h>
#include <wx/window.h>

namespace zek {

/// Centres a form on the screen. A form larger than the screen starts at coordinate 0.
void CenterForm(wxTopLevelWindow& form);

/// The place, shrunk and moved so that it is on the screen, both in pixels.
wxRect OntoScreen(wxRect place, const wxRect& screen);

/// Keeps a form above all other windows, or stops doing so.
void SetTopmost(wxTopLevelWindow& form, bool on);

/// Restores the form's last size and position, and saves them when the form is destroyed. `name`
/// identifies the form ("ZV_Main"). A form opened for the first time is centred.
void RememberPlacement(wxTopLevelWindow& form, const std::string& name);

/// Makes the second click of a double click on the button do nothing. Call it after the button got
/// its other handlers.
void IgnoreSecondClick(wxButton& button);

/// True while a dialog or a message box belongs to the form. The form must not be destroyed
/// meanwhile: it would take the dialog with it.
bool HasOpenBox(const wxWindow& form);

/// The font of all text boxes and of the log: fixed pitch.
wxFont FixedFont();

/// Calls `refresh` 20 ms after `Request`. Further requests in that time cause no further call.
class FrameRefresh {
 public:
  explicit FrameRefresh(std::function<void()> refresh);
  void Request();

 private:
  class Timer;
  std::shared_ptr<Timer> timer_;
};

}  // namespace zek
