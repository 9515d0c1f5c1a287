#pragma once

#include <string>

#include <wx/window.h>

namespace zek::window {

/// What a screen reader is told about a window, UTF-8.
std::string SpokenName(wxWindow& window);

}  // namespace zek::window
