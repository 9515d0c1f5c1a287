#include "plant/PlantOptions.h"

#include "settings/OptionParser.h"

namespace zek::sim {

PlantOptions ReadPlantOptions(const std::vector<std::string>& arguments) {
  PlantOptions options;
  OptionParser parser(
      "zekview-sim",
      "Plays a communication server and its controllers on 127.0.0.1. The first line of\n"
      "standard output is the port. Ctrl+C ends it. On Windows the plant is served over DDE\n"
      "as well: service ZEK, the outstations' names as topics, item TRANSPARENT.\n");
  constexpr int largestPort = 65535;
  parser.add_option("--port", options.port, "listen on port N; 0, the default, takes a free one")
      ->check(CLI::Range(0, largestPort).description(""))
      ->type_name("N");
  parser
      .add_option("--plant", options.folder,
                  "the plant, one sub-folder an outstation (default: data/demo/plant)")
      ->type_name("FOLDER");
  parser.add_flag("--keep", options.keep, "write changed catalogues back into the plant folder");
  parser.add_flag("--verbose", options.verbose, "show the traffic on standard error");
  parser
      .add_option("--dde", options.ddeServices,
                  "serve over DDE as NAME instead of ZEK; may be given several times")
      ->expected(1)
      ->take_all()
      ->type_name("NAME");
  options.error = parser.Read(arguments, options.help);
  return options;
}

}  // namespace zek::sim
