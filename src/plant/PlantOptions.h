#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plant/Plant.h"

namespace zek::sim {

/// The command line of the simulated plant.
struct PlantOptions {
  std::uint16_t port = 0;  // 0: any free port
  std::string folder = "data/demo/plant";
  Replaces replaces = Replaces::Number;  // of every outstation
  bool keep = false;                     // save changes in the plant folder
  bool verbose = false;                  // print the traffic on standard error
  std::string help;                      // with --help: the text to print, else ""
  std::vector<std::string> ddeServices;  // service names; empty: "ZEK", if the system has DDE
  std::string error;                     // error in the command line, or ""
};

/// Parses the arguments, which exclude the program's name.
PlantOptions ReadPlantOptions(const std::vector<std::string>& arguments);

}  // namespace zek::sim
