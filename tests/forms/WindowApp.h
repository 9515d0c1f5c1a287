#pragma once

#include <functional>
#include <string>

#include <wx/window.h>

/// What the window tests share: real windows on the real event loop. The tests run inside the
/// running loop.
namespace zek::window {

/// Runs events until `condition` holds; false when it does not within ten seconds.
bool PumpUntil(const std::function<bool()>& condition);

/// Runs events for that long, where there is no condition to wait for (simulated keys on their
/// way, something that must not happen).
void Pump(int milliseconds);

/// Calls `action` once as soon as `condition` holds, from inside whatever loop runs then: the way
/// to reach a form that is shown modally.
void When(std::function<bool()> condition, std::function<void()> action);

/// The visible window with that name ("ZV_WDC", "Text_Input"), or null.
wxWindow* Shown(const std::string& name);

/// Chooses a menu item or presses a button of `window`: posts the command event.
void Command(wxWindow& window, wxEventType type, int id);

}  // namespace zek::window
