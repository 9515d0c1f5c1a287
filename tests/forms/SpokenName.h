#pragma once

#include <string>

#include <wx/window.h>

namespace zek::window {

/// The name of a window for a screen reader, UTF-8.
std::string SpokenName(wxWindow& window);

}  // namespace zek::window
