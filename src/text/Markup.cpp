#include "text/Markup.h"

#include "text/Windows1252.h"

namespace zek {

std::string MarkupText(std::string_view text) {
  std::string markup;
  for (const char c : text) {
    if (c == '&') {
      markup += "&amp;";
    } else if (c == '<') {
      markup += "&lt;";
    } else if (c == '>') {
      markup += "&gt;";
    } else if (c == '"') {
      markup += "&quot;";
    } else {
      markup += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return Utf8FromWindows1252(markup);
}

}  // namespace zek
