#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

#include "text/Windows1252.h"

namespace zek {

/// Converts text of the core (windows-1252) to text of the window. All conversion is in this file.
inline wxString ToWx(std::string_view windows1252) {
  const std::string utf8 = Utf8FromWindows1252(windows1252);
  return wxString::FromUTF8(utf8.data(), utf8.size());
}

/// Converts text of the window to windows-1252. Characters without a code there become "?".
inline std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer utf8 = text.utf8_str();
  return Windows1252FromUtf8({utf8.data(), utf8.length()});
}

}  // namespace zek
