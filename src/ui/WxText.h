#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

namespace zek {

/// The one place where windows-1252 becomes Unicode and back: core text to the window.
wxString ToWx(std::string_view windows1252);

/// Text from the window to the core; characters that windows-1252 lacks become "?".
std::string FromWx(const wxString& text);

}  // namespace zek
