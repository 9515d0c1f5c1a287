#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

#include "text/Windows1252.h"

namespace zek {

/// The one place where windows-1252 becomes Unicode and back: core text to the window.
inline wxString ToWx(std::string_view windows1252) {
  const std::string utf8 = Utf8FromWindows1252(windows1252);
  return wxString::FromUTF8(utf8.data(), utf8.size());
}

/// Text from the window to the core; characters that windows-1252 lacks become "?".
inline std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer utf8 = text.utf8_str();
  return Windows1252FromUtf8({utf8.data(), utf8.length()});
}

}  // namespace zek
