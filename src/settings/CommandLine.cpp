#include "settings/CommandLine.h"

#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

std::optional<std::string>* OptionOf(CommandLine& line, std::string_view name) {
  if (name == "--dir") return &line.dir;
  if (name == "--ini") return &line.ini;
  if (name == "--tour") return &line.tour;
  return nullptr;
}

}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (std::optional<std::string>* const option = OptionOf(line, arguments[i])) {
      if (i + 1 == arguments.size()) {
        line.missingValue = arguments[i];
      } else {
        *option = arguments[++i];
      }
      continue;
    }
    if (!line.text.empty()) line.text += ' ';
    line.text += Windows1252FromUtf8(arguments[i]);
  }
  return line;
}

bool HasSwitch(std::string_view text, std::string_view name) {
  return UpperCase(text).find(name) != std::string::npos;
}

std::string SwitchValue(std::string_view text, std::string_view name) {
  const std::size_t found = UpperCase(text).find(name);
  if (found == std::string::npos) return {};
  const std::string_view word = GetField(text.substr(found + name.size()), 0, " ");
  return UpperCase(GetField(word, 0, "/"));
}

}  // namespace zek
