#include "settings/CommandLine.h"

#include <algorithm>
#include <array>

#include "settings/OptionParser.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {
constexpr std::array<std::string_view, 9> kNames = {
    "/LOCAL",  "/VIEWONLY", "/BATCH",   "/EVENTLOG", "/ALWAYSONTOP",
    "/TOPIC:", "/TAG:",     "/DIALOG:", "/INI:"};

constexpr const char* kSwitches =
    "Switches, in any case and anywhere:\n"
    "  /LOCAL       work with the local copies, without controllers\n"
    "  /VIEWONLY    change nothing\n"
    "  /BATCH       export all catalogues into files, ask nothing, then end\n"
    "  /EVENTLOG    with /BATCH: record its end in the system's log of events\n"
    "  /ALWAYSONTOP keep the window above others\n"
    "  /TOPIC:NAME  open the browser on this topic; /TAG:NAME is the same\n"
    "  /DIALOG:NAME connect to this topic\n"
    "  /INI:DIR     the directory of ZEKView.INI, without blanks; --ini takes any";
}  // namespace

CommandLine ParseCommandLine(const std::vector<std::string>& arguments) {
  CommandLine line;
  OptionParser parser("zekview", "Shows and changes the time catalogues of ZEK1 and ZEK2.");
  parser.allow_extras();
  parser.add_option("--dir", line.dir, "language files and local copies")->type_name("DIR");
  parser.add_option("--ini", line.ini, "the directory of ZEKView.INI")->type_name("DIR");
  parser.add_flag("--demo", line.demo, "a demonstration on a simulated plant");
  parser.add_option("--tour", line.tour)->type_name("DIR")->group("");
  parser.footer(kSwitches);
  line.error = parser.Read(arguments, line.help);
  for (const std::string& argument : parser.remaining()) {
    if (!line.text.empty()) line.text += ' ';
    line.text += Windows1252FromUtf8(argument);
  }
  return line;
}

bool HasSwitch(std::string_view text, std::string_view name) {
  return UpperCase(text).find(name) != std::string::npos;
}

std::string UnknownSwitches(std::string_view text) {
  std::string unknown;
  while (!text.empty()) {
    const std::string_view word = GetField(text, 0, " ");
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    const bool meant = word.starts_with('/') || word.starts_with("--");
    const auto holds = [word](std::string_view name) { return HasSwitch(word, name); };
    if (!meant || std::any_of(kNames.begin(), kNames.end(), holds)) continue;
    unknown.append(unknown.empty() ? "" : " ").append(word);
  }
  return unknown;
}

std::string SwitchValue(std::string_view text, std::string_view name) {
  const std::size_t found = UpperCase(text).find(name);
  if (found == std::string::npos) return {};
  const std::string_view word = GetField(text.substr(found + name.size()), 0, " ");
  return UpperCase(GetField(word, 0, "/"));
}

}  // namespace zek
