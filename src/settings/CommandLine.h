#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// The arguments of the desktop program, without the program's own name: the options below with
/// their values, and everything else joined by single blanks, in which the switches are searched.
struct CommandLine {
  std::string text;                 // windows-1252
  std::optional<std::string> dir;   // --dir DIR: the program directory, UTF-8
  std::optional<std::string> ini;   // --ini DIR: the directory of ZEKView.INI
  std::optional<std::string> tour;  // --tour DIR: take the screenshots of the documentation
  std::string help;                 // the text to print when --help was given, else empty
  std::string error;                // what is wrong with the options; empty when nothing is
};

/// `arguments` are UTF-8.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// True when `name` ("/LOCAL") occurs anywhere in the text, in any case.
bool HasSwitch(std::string_view text, std::string_view name);

/// The value of a switch ("/TOPIC:"): what stands right behind it up to the first blank, of that
/// the part before the first "/", upper-cased; "" when the switch is missing.
std::string SwitchValue(std::string_view text, std::string_view name);

}  // namespace zek
