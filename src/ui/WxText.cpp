#include "ui/WxText.h"

#include "text/Windows1252.h"

namespace zek {

wxString ToWx(std::string_view windows1252) {
  const std::string utf8 = Utf8FromWindows1252(windows1252);
  return wxString::FromUTF8(utf8.data(), utf8.size());
}

std::string FromWx(const wxString& text) {
  const wxScopedCharBuffer utf8 = text.utf8_str();
  return Windows1252FromUtf8({utf8.data(), utf8.length()});
}

}  // namespace zek
