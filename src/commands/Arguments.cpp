#include "commands/Arguments.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <string_view>
#include <utility>

#include "settings/OptionParser.h"
#include "text/Fields.h"

namespace zek::cli {
namespace {

// An option of a command; null: none.
struct CommandFlag {
  const char* name = nullptr;
  bool Arguments::*value = nullptr;
};

// An option of a command with a value, or with several if it may be repeated; null: none.
struct CommandOption {
  const char* name = nullptr;
  const char* type = nullptr;
  std::string Arguments::*value = nullptr;
  std::vector<std::string> Arguments::*values = nullptr;
};

struct CommandShape {
  const char* name;
  const char* operands;  // in brackets: optional; with "...": several values
  std::array<CommandFlag, 3> flags;
  const char* description;
  std::array<CommandOption, 3> options = {};
};

constexpr CommandFlag kLocal{"--local", &Arguments::local};
constexpr CommandOption kRule{"--rule", "NAME=VALUE", nullptr, &Arguments::rules};

constexpr auto kCommands = std::to_array<CommandShape>({
    {"topics", "", {}, "the topic table"},
    {"objects", "", {}, "the objects and their time controls"},
    {"send", "TOPIC TEXT", {}, "send one command, print the reply"},
    {"get",
     "KIND NODE",
     {kLocal},
     "fetch a catalogue, keep its local copy, print it;\n"
     "--local prints the local copy instead"},
    {"put",
     "KIND NODE FILE",
     {{{"--no-send", &Arguments::noSend}, {"--dry-run", &Arguments::dryRun}}},
     "store a catalogue locally and send it;\n"
     "--no-send only stores it;\n"
     "--dry-run prints what would change and exits with 3"},
    {"check",
     "KIND NODE FILE",
     {{{"--rebuild", &Arguments::rebuild}}},
     "read a catalogue and print its table;\n"
     "--rebuild prints the lines that would be sent"},
    {"export",
     "[KIND...]",
     {kLocal, {"--eventlog", &Arguments::eventLog}},
     "fetch the catalogues of all time controls (without\n"
     "KIND: all kinds) into files in DIR/Batch;\n"
     "--local exports the local copies instead;\n"
     "--eventlog records the end in the system's log of events"},
    {"history",
     "KIND NODE [ACTION] [ID]",
     {},
     "the earlier local copies of a catalogue, by ID;\n"
     "compare ID: print how copy ID and the local copy differ;\n"
     "restore ID: make copy ID the local copy, send nothing;\n"
     "undo: fetch the catalogue, then send it as it was before\n"
     "the last sending"},
    {"timeline",
     "NODE FROM TO",
     {kLocal},
     "what applies from FROM up to TO: from, to, value, source;\n"
     "--svg FILE: also as a picture of up to 31 days",
     {kRule, {"--svg", "FILE", &Arguments::svg}}},
    {"explain",
     "NODE [WHEN]",
     {kLocal},
     "what applies at WHEN, since when, until when and why;\n"
     "--observed V: also which variants of the rule give V;\n"
     "--batch FILE: value and source for each line of FILE,\n"
     "WHEN or WHEN, tab, and switches separated by commas",
     {kRule, {"--observed", "V", &Arguments::observed}, {"--batch", "FILE", &Arguments::batch}}},
    {"next", "NODE WHEN", {kLocal}, "the next event and the next change after WHEN", {kRule}},
    {"lint",
     "[NODE...]",
     {kLocal, {"--json", &Arguments::json}, {"--exit-code", &Arguments::exitCode}},
     "what is probably not meant, without NODE in the whole\n"
     "plant: code, severity, node, place and text;\n"
     "--exit-code: exits with 3 if there is an E or W",
     {{{"--today", "DATE", &Arguments::today}}}},
    {"report",
     "NODE...",
     {kLocal},
     "write what the controls hold into an HTML file to read\n"
     "and to print: the week of today, the tables, the\n"
     "calendar of a year (--year, without it the present one),\n"
     "what is probably not meant",
     {{{"--out", "FILE", &Arguments::out},
       {"--year", "YEAR", &Arguments::year},
       {"--today", "DATE", &Arguments::today}}}},
    {"plan",
     "[CHANGES] [NODE...]",
     {{{"--exit-code", &Arguments::exitCode}}},
     "fetch the catalogues of the nodes and plan one change\n"
     "of all of them; nothing is sent or stored. Prints for\n"
     "each catalogue unchanged, change or refused;\n"
     "--nodes FILE: more nodes, one a line;\n"
     "--revert PLAN: instead, plan the way back of PLAN;\n"
     "--exit-code: exits with 3 if something would change",
     {{{"--out", "PLAN", &Arguments::out},
       {"--nodes", "FILE", &Arguments::nodes},
       {"--revert", "PLAN", &Arguments::revert}}}},
    {"apply",
     "PLAN",
     {},
     "send what a plan changes. Prints for each catalogue done,\n"
     "already, stale, failed, refused or untried; can be\n"
     "interrupted and run again"},
    {"import",
     "KIND NODE DATES",
     {{{"--write", &Arguments::write}}},
     "what the dates in a file change in a calendar (KIND is\n"
     "sdc): add, already or conflict (then the present day\n"
     "type), date, day type and name; skipped, reason and name;\n"
     "--as gives the day type, such as SD1; dates from --from\n"
     "to --to are taken; --write changes the local copy, except\n"
     "for the conflicts, and sends nothing",
     {{{"--as", "TYPE", &Arguments::dayType},
       {"--from", "DATE", &Arguments::from},
       {"--to", "DATE", &Arguments::to}}}},
    {"take-over",
     "[FOLDER]",
     {},
     "before the first start of an installed program: copy\n"
     "settings, local copies and history from an older folder;\n"
     "without FOLDER begin with the settings of the program"},
    {"password",
     "",
     {},
     "read the password of the tag server from standard input,\n"
     "unseen at a terminal, and put it into ZEKView.INI,\n"
     "encrypted for this computer (only on Windows)"},
    {"holidays", "COUNTRY YEAR [TO_YEAR]", {}, "the holidays of SE, by law and de facto"},
});

constexpr int kMostOperands = 10000;

constexpr auto kOperands = std::to_array<std::pair<std::string_view, const char*>>({
    {"TOPIC", "a controller's name, see the command topics"},
    {"TEXT", "the command as the controller takes it"},
    {"KIND", "wdc (weekdays), sdc (special-day calendar) or ovc (exceptions)"},
    {"NODE", "TOPIC, or TOPIC/TSC for one time control, see the command objects"},
    {"DATES", "a calendar (.ics) or a table (.csv); - for standard input"},
    {"FILE", "the catalogue's lines, UTF-8 or windows-1252; - for standard input"},
    {"CHANGES", "a file of changes, one a line; - for standard input"},
    {"PLAN", "a file that the command plan wrote"},
    {"ACTION", "compare, restore or undo; without it the copies are listed"},
    {"ID", "of an earlier copy, as listed"},
    {"FOLDER", "with the ZEKView.INI that was used so far; nothing in it changes"},
    {"COUNTRY", "SE"},
    {"YEAR", "1990 to 2099"},
    {"TO_YEAR", "the last year, for several"},
    {"FROM", "the first minute, such as 2026-12-07T06:30"},
    {"TO", "the minute after the last one"},
    {"WHEN", "a minute, such as 2026-12-07T06:30"},
});

constexpr const char* kNotes =
    "KIND is wdc, sdc or ovc; NODE is TOPIC or TOPIC/TSC; FILE may be - for standard input.\n"
    "Write -- before an operand that begins with a hyphen.\n"
    "What applies is computed by a rule that is assumed; --rule sets its switches:\n"
    "exception=mask or command, carry=yes or no, nostop=default or hold, early=same or next.\n"
    "\n"
    "The lines of CHANGES are\n"
    "+ sdc DATE[..DATE] TYPE                      - sdc DATE[..DATE]\n"
    "+ ovc START STOP VALUE STOPVALUE             - ovc START\n"
    "+ wdc DAYS HH:MM[..HH:MM] VALUE [STOPVALUE]  - wdc DAYS HH:MM\n"
    "with dates 2026-12-24, moments 2026-12-24T08:00, days MO..FR or SD1, - for no value.\n"
    "\n"
    "exit status: 0 done, 1 failed or a line was refused, 2 wrong usage or unknown name,\n"
    "3 a dry run found changes, or --exit-code findings";

// Lists each command with its operands and its option.
class CommandList : public CLI::Formatter {
 public:
  std::string make_option_usage(const CLI::Option* option) const override {
    if (option->get_required()) return option->get_name();
    const bool hasValue = option->nonpositional() && !option->get_type_name().empty();
    return "[" + option->get_name() + (hasValue ? " " + option->get_type_name() : "") + "]";
  }

  std::string make_subcommand(const CLI::App* command) const override {
    std::string synopsis = command->get_name();
    for (const CLI::Option* const option : command->get_options()) {
      if (option != command->get_help_ptr()) synopsis += " " + make_option_usage(option);
    }
    std::ostringstream line;
    CLI::detail::format_help(line, synopsis, command->get_description(), get_column_width());
    return line.str();
  }
};

void AddOperand(CLI::App& command, std::string name, Arguments& parsed) {
  const bool optional = name.front() == '[';
  if (optional) name = name.substr(1, name.size() - 2);
  const auto add = [&parsed](const std::vector<std::string>& values) {
    parsed.operands.insert(parsed.operands.end(), values.begin(), values.end());
    return true;
  };
  const int most = name.starts_with("KIND") ? 3 : kMostOperands;
  const bool several = name.ends_with("...");
  const auto* const operand =
      std::find_if(kOperands.begin(), kOperands.end(),
                   [&name](const auto& each) { return name.starts_with(each.first); });
  command.add_option(name, add, operand == kOperands.end() ? "" : operand->second)
      ->expected(1, several ? most : 1)
      ->allow_extra_args(several)
      ->multi_option_policy(CLI::MultiOptionPolicy::Throw)
      ->required(!optional);
}

void AddOption(CLI::App& command, const CommandOption& option, Arguments& parsed) {
  if (option.name == nullptr) return;
  CLI::Option& added = option.value != nullptr
                           ? *command.add_option(option.name, parsed.*option.value)
                           : *command.add_option(option.name, parsed.*option.values)
                                  ->expected(1)
                                  ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  added.type_name(option.type)->check([](const std::string& value) {
    return std::string(value.empty() ? "an empty value" : "");
  });
}

void AddCommand(CLI::App& program, const CommandShape& shape, Arguments& parsed) {
  CLI::App& command = *program.add_subcommand(shape.name, shape.description)->group("Commands");
  command.callback([&parsed, &shape] { parsed.command = shape.name; });
  std::istringstream operands(shape.operands);
  for (std::string name; operands >> name;) AddOperand(command, name, parsed);
  for (const CommandFlag& flag : shape.flags)
    if (flag.name != nullptr) command.add_flag(flag.name, parsed.*flag.value);
  for (const CommandOption& option : shape.options) AddOption(command, option, parsed);
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& arguments) {
  Arguments parsed;
  OptionParser program("zekview-cli", "The time catalogues of ZEK1 and ZEK2 without a window.");
  const auto list = std::make_shared<CommandList>();
  list->column_width(35);
  list->label("SUBCOMMAND", "COMMAND ...");
  program.formatter(list);
  program.set_help_flag("-h,--help", "show this text; after a command, the command's help");
  program
      .add_option("--dir", parsed.dir,
                  "language files and local copies (default: the program's directory\n"
                  "or, if it was installed, its data folder)")
      ->type_name("DIR");
  program.add_option("--ini", parsed.ini, "the directory of ZEKView.INI (default: the same)")
      ->type_name("DIR");
  program
      .add_option("--session", parsed.session,
                  "add what controllers say to FILE, with its times; * is the date")
      ->type_name("FILE");
  for (const CommandShape& shape : kCommands) AddCommand(program, shape, parsed);
  program.require_subcommand(0, 1);  // a missing one is reported below
  program.footer(kNotes);
  parsed.error = program.Read(arguments, parsed.help);
  if (parsed.error.empty() && parsed.help.empty() && parsed.command.empty()) {
    parsed.error = "a command is missing";
  }
  return parsed;
}

bool Arguments::Contacts() const {
  constexpr auto remote =
      std::to_array<std::string_view>({"send", "get", "put", "export", "timeline", "explain",
                                       "next", "lint", "report", "plan", "apply"});
  const bool undo = command == "history" && operands.size() > 2 && operands[2] == kUndoAction;
  const bool contacts = undo || std::find(remote.begin(), remote.end(), command) != remote.end();
  return contacts && !local && !noSend;
}

std::optional<Catalogue> CatalogueOf(const std::string& kind) {
  if (EqualNoCase(kind, "wdc")) return Catalogue::Wdc;
  if (EqualNoCase(kind, "sdc")) return Catalogue::Sdc;
  if (EqualNoCase(kind, "ovc")) return Catalogue::Ovc;
  return std::nullopt;
}

}  // namespace zek::cli
