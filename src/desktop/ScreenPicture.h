#pragma once

#include <string>

#include <wx/window.h>

namespace zek {

/// Saves what the screen shows of a window as a BMP file (the path in UTF-8), a format that the
/// toolkit knows everywhere. False when the file can't be written.
bool SaveScreenPicture(const wxWindow& window, const std::string& path);

}  // namespace zek
