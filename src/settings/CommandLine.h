#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// The arguments of the desktop program, without the program's name: the options with their values,
/// and all other arguments joined by single blanks in `text`. `text` is searched for switches.
struct CommandLine {
  std::string text;                 // windows-1252
  std::optional<std::string> dir;   // --dir DIR: the program directory, UTF-8
  std::optional<std::string> ini;   // --ini DIR: the directory of ZEKView.INI
  std::optional<std::string> tour;  // --tour DIR: take the screenshots of the documentation
  bool demo = false;                // --demo: on a simulated plant, in a folder of its own
  std::string help;                 // the text to print for --help, else empty
  std::string error;                // why the options are invalid; empty if they are valid
};

/// Parses the arguments, which are UTF-8.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// True if `name` ("/LOCAL") occurs anywhere in the text, in any case.
bool HasSwitch(std::string_view text, std::string_view name);

/// Returns the words that look like a switch or an option but hold none, joined by blanks.
std::string UnknownSwitches(std::string_view text);

/// Returns the value of a switch ("/TOPIC:"): the text from the switch to the next blank or "/", in
/// upper case. Returns "" if the switch is missing.
std::string SwitchValue(std::string_view text, std::string_view name);

}  // namespace zek
