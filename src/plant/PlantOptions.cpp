#include "plant/PlantOptions.h"

#include <map>

#include "settings/OptionParser.h"

namespace zek::sim {

PlantOptions ReadPlantOptions(const std::vector<std::string>& arguments) {
  PlantOptions options;
  OptionParser parser(
      "zekview-sim",
      "Simulates a communication server and its controllers on 127.0.0.1. The first line of\n"
      "standard output is the port. Ctrl+C ends the program. On Windows the plant is also\n"
      "served over DDE: service ZEK, the outstations' names as topics, item TRANSPARENT.\n");
  constexpr int largestPort = 65535;
  parser
      .add_option("--port", options.port, "listen on port N; 0, the default, means any free port")
      ->check(CLI::Range(0, largestPort).description(""))
      ->type_name("N");
  parser
      .add_option("--plant", options.folder,
                  "the plant, one sub-folder per outstation (default: data/demo/plant)")
      ->type_name("FOLDER");
  const std::map<std::string, Replaces> ways = {{"number", Replaces::Number},
                                                {"control", Replaces::Control},
                                                {"catalogue", Replaces::Catalogue}};
  parser
      .add_option_function<std::string>(
          "--replace", [&](const std::string& what) { options.replaces = ways.at(what); },
          "what a catalogue that is sent replaces: lines of the same \"number\"\n"
          "(default), lines of the same time \"control\", or the \"catalogue\"")
      ->check(CLI::IsMember(ways).description(""))
      ->type_name("WHAT");
  parser.add_flag("--keep", options.keep, "save changed catalogues in the plant folder");
  parser.add_flag("--verbose", options.verbose, "show the traffic on standard error");
  parser
      .add_option("--dde", options.ddeServices,
                  "serve over DDE as NAME instead of ZEK; may be repeated")
      ->expected(1)
      ->take_all()
      ->type_name("NAME");
  options.error = parser.Read(arguments, options.help);
  return options;
}

}  // namespace zek::sim
