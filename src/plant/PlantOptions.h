#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zek::sim {

/// The command line of the simulated plant.
struct PlantOptions {
  std::uint16_t port = 0;  // 0 takes a free one
  std::string folder = "data/demo/plant";
  bool keep = false;                     // write changes back
  bool verbose = false;                  // traffic to standard error
  std::string help;                      // the text to print when --help was given, else ""
  std::vector<std::string> ddeServices;  // names to serve under; none: "ZEK", where there is DDE
  std::string error;                     // "" or what is wrong with the command line
};

/// Reads the arguments without the program's own name.
PlantOptions ReadPlantOptions(const std::vector<std::string>& arguments);

}  // namespace zek::sim
