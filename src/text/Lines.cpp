#include "text/Lines.h"

#include <algorithm>

#include "text/Controls.h"

namespace zek {

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string OnOneLine(std::string_view message) {
  std::string joined;
  while (!message.empty()) {
    std::string line(TakeLine(message));
    if (line.empty()) continue;
    ShowControls(line);
    if (!joined.empty()) joined += ' ';
    joined += line;
  }
  return joined;
}

std::string Shortened(std::string_view text, std::size_t longest, std::size_t end) {
  if (text.size() <= longest) return std::string(text);
  std::string shortened(text.substr(0, longest - end));
  return shortened.append("...").append(text.substr(text.size() - end));
}

}  // namespace zek
