#include "commands/Arguments.h"

#include <algorithm>
#include <array>

#include "text/Fields.h"

namespace zek::cli {
namespace {

struct CommandShape {
  std::string_view name;
  std::size_t fewest;  // operands
  std::size_t most;
  std::string_view option;  // the one option it knows, if any
};

constexpr auto kCommands = std::to_array<CommandShape>({
    {"topics", 0, 0, ""},
    {"objects", 0, 0, ""},
    {"send", 2, 2, ""},
    {"get", 2, 2, "--local"},
    {"put", 3, 3, "--no-send"},
    {"check", 3, 3, "--rebuild"},
    {"export", 0, 3, "--local"},
    {"history", 2, 4, ""},
});

const CommandShape* ShapeOf(std::string_view name) {
  const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                         [name](const CommandShape& c) { return c.name == name; });
  return found == kCommands.end() ? nullptr : found;
}

bool TakeProgramOption(Arguments& parsed, const std::vector<std::string>& arguments,
                       std::size_t& at) {
  const std::string& name = arguments[at];
  if (name == "--help" || name == "-h") {
    parsed.help = true;
    return true;
  }
  if (name != "--dir" && name != "--ini") return false;
  if (at + 1 == arguments.size()) {
    parsed.error = name + " needs a directory";
    return true;
  }
  (name == "--dir" ? parsed.dir : parsed.ini) = arguments[++at];
  return true;
}

// Everything behind the command. "--" ends the options, so that a text may begin with "--".
void TakeOperands(Arguments& parsed, const std::vector<std::string>& arguments, std::size_t at) {
  const CommandShape& shape = *ShapeOf(parsed.command);
  bool optionsEnded = false;
  for (; at < arguments.size() && parsed.error.empty(); ++at) {
    const std::string& argument = arguments[at];
    if (!optionsEnded && argument == "--") {
      optionsEnded = true;
    } else if (!optionsEnded && !shape.option.empty() && argument == shape.option) {
      parsed.local = argument == "--local";
      parsed.noSend = argument == "--no-send";
      parsed.rebuild = argument == "--rebuild";
    } else if (!optionsEnded && argument.starts_with("--")) {
      parsed.error = parsed.command + ": unknown option " + argument;
    } else {
      parsed.operands.push_back(argument);
    }
  }
  const std::size_t given = parsed.operands.size();
  if (parsed.error.empty() && (given < shape.fewest || given > shape.most)) {
    parsed.error = parsed.command + ": takes " + (shape.fewest == shape.most ? "" : "at most ") +
                   std::to_string(shape.most) + " arguments, got " + std::to_string(given);
  }
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& arguments) {
  Arguments parsed;
  std::size_t at = 0;
  while (at < arguments.size() && TakeProgramOption(parsed, arguments, at)) ++at;
  if (parsed.help || !parsed.error.empty()) return parsed;
  if (at == arguments.size()) {
    parsed.error = "a command is missing";
  } else if (ShapeOf(arguments[at]) == nullptr) {
    parsed.error =
        (arguments[at].starts_with("-") ? "unknown option " : "unknown command ") + arguments[at];
  } else {
    parsed.command = arguments[at];
    TakeOperands(parsed, arguments, at + 1);
  }
  return parsed;
}

std::optional<Catalogue> CatalogueOf(const std::string& kind) {
  if (EqualNoCase(kind, "wdc")) return Catalogue::Wdc;
  if (EqualNoCase(kind, "sdc")) return Catalogue::Sdc;
  if (EqualNoCase(kind, "ovc")) return Catalogue::Ovc;
  return std::nullopt;
}

std::string Usage() {
  return "usage: zekview-cli [--dir DIR] [--ini DIR] COMMAND ...\n"
         "\n"
         "  topics                           the topic table\n"
         "  objects                          the objects and their time controls\n"
         "  send TOPIC TEXT                  send one command, print the answer\n"
         "  get KIND NODE [--local]          fetch a catalogue, keep its local copy, print it\n"
         "  put KIND NODE FILE [--no-send]   store a catalogue locally and send it\n"
         "  check KIND NODE FILE [--rebuild] read a catalogue and print its table\n"
         "  export [KIND...] [--local]       fetch the catalogues of all time controls (all kinds\n"
         "                                   when none is named) into files in DIR/Batch; --local\n"
         "                                   takes the local copies instead\n"
         "  history KIND NODE                the earlier local copies of a catalogue, by ID\n"
         "  history KIND NODE compare ID     how one of them and the local copy differ\n"
         "  history KIND NODE restore ID     make it the local copy again, send nothing\n"
         "\n"
         "  --dir DIR  language files and local copies (default: the program's directory)\n"
         "  --ini DIR  the directory of ZEKView.INI (default: the same)\n"
         "  KIND is wdc, sdc or ovc; NODE is TOPIC or TOPIC/TSC; FILE may be - for standard input\n"
         "\n"
         "exit status: 0 done, 1 failed or a line was refused, 2 wrong usage or unknown name\n";
}

}  // namespace zek::cli
