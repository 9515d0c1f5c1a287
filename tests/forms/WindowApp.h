#pragma once

#include <functional>
#include <string>

#include <wx/window.h>

/// Functions for the window tests. They use real windows and run inside the real event loop.
namespace zek::window {

/// Runs events until `condition` holds; returns false after 30 seconds.
bool PumpUntil(const std::function<bool()>& condition);

/// Runs events for that time. For cases without a condition to wait for: pending simulated keys,
/// something that must not happen.
void Pump(int milliseconds);

/// Calls `action` once, as soon as `condition` holds, inside the event loop that runs then. This
/// reaches forms that are shown modally.
void When(std::function<bool()> condition, std::function<void()> action);

/// The visible window with that name ("ZV_WDC", "Text_Input"), or null.
wxWindow* Shown(const std::string& name);

/// Chooses a menu item or presses a button of `window`: posts the command event.
void Command(wxWindow& window, wxEventType type, int id);

}  // namespace zek::window
