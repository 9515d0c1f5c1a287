#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

namespace zek {

/// Parses UTF-8 arguments in the same way on every system. Include it in only one source file of a
/// program: the headers of the library take seconds to compile.
class OptionParser : public CLI::App {
 public:
  OptionParser(const std::string& program, const std::string& description)
      : CLI::App(description, program) {
    set_help_flag("--help", "show this text");
    allow_windows_style_options(false);  // "/NAME" is an ordinary argument
    option_defaults()->disable_flag_override()->multi_option_policy(
        CLI::MultiOptionPolicy::TakeLast);
  }

  /// Returns an error message, or "" if the arguments are valid. With --help, sets `helpText`.
  std::string Read(std::vector<std::string> arguments, std::string& helpText) {
    std::reverse(arguments.begin(), arguments.end());
    try {
      parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
      helpText = help();
    } catch (const CLI::Error& error) {
      return error.what();
    }
    return {};
  }
};

}  // namespace zek
