#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/ExitStatus.h"
#include "catalogue/CatalogueKind.h"

namespace zek::cli {

/// The command line: options of the program first, then a command with its own.
struct Arguments {
  std::optional<std::string> dir;  // --dir, UTF-8
  std::optional<std::string> ini;  // --ini
  std::string command;
  std::vector<std::string> operands;  // UTF-8
  bool local = false;                 // get --local, export --local
  bool noSend = false;                // put --no-send
  bool rebuild = false;               // check --rebuild
  std::string help;                   // the text to print when --help was given, else empty
  std::string error;                  // what is wrong; empty when nothing is
};

Arguments ParseArguments(const std::vector<std::string>& arguments);

/// "wdc", "sdc" or "ovc" in any case.
std::optional<Catalogue> CatalogueOf(const std::string& kind);

}  // namespace zek::cli
