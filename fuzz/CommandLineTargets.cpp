#include <algorithm>
#include <string>
#include <vector>

#include "Demand.h"
#include "Targets.h"
#include "commands/Arguments.h"
#include "plant/PlantOptions.h"
#include "settings/CommandLine.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::fuzz {
namespace {

using Words = std::vector<std::string>;

void Desktop(const Words& arguments) {
  const CommandLine line = ParseCommandLine(arguments);
  Words built;
  const auto add = [&built](const char* name, const std::optional<std::string>& value) {
    if (value) built.insert(built.end(), {name, *value});
  };
  add("--dir", line.dir);
  add("--ini", line.ini);
  add("--tour", line.tour);
  built.push_back(Utf8FromWindows1252(line.text));
  const CommandLine again = ParseCommandLine(built);
  Demand(again.dir == line.dir && again.ini == line.ini && again.tour == line.tour,
         "options that were built are the same");
  for (const char* name : {"/TOPIC:", "/TAG:", "/INI:", "/DIALOG:"}) {
    const std::string value = SwitchValue(line.text, name);
    Demand(value.find_first_of(" /") == std::string::npos, "a switch's value is one word");
    Demand(SwitchValue(name + value, name) == value, "a switch that was built is the same");
  }
}

void Commands(const Words& arguments) {
  const cli::Arguments parsed = cli::ParseArguments(arguments);
  if (!parsed.help.empty() || !parsed.error.empty()) return;
  Words built;
  if (parsed.dir) built.insert(built.end(), {"--dir", *parsed.dir});
  if (parsed.ini) built.insert(built.end(), {"--ini", *parsed.ini});
  built.push_back(parsed.command);
  if (parsed.local) built.emplace_back("--local");
  if (parsed.noSend) built.emplace_back("--no-send");
  if (parsed.rebuild) built.emplace_back("--rebuild");
  built.emplace_back("--");
  built.insert(built.end(), parsed.operands.begin(), parsed.operands.end());
  const cli::Arguments again = cli::ParseArguments(built);
  Demand(again.error.empty() && again.operands == parsed.operands && again.dir == parsed.dir &&
             again.ini == parsed.ini && again.local == parsed.local &&
             again.noSend == parsed.noSend && again.rebuild == parsed.rebuild,
         "a command that was built is the same");
}

}  // namespace

// One argument a line, without characters 0, which no argument can hold.
void CommandLines(std::string_view input) {
  Words arguments;
  while (!input.empty()) {
    std::string& argument = arguments.emplace_back(TakeLine(input));
    std::erase(argument, '\0');
  }
  Desktop(arguments);
  Commands(arguments);
  const sim::PlantOptions options = sim::ReadPlantOptions(arguments);
  if (!arguments.empty() && arguments.front() == "--help")
    Demand(!options.help.empty() || !options.error.empty(), "help is given");
}

}  // namespace zek::fuzz
