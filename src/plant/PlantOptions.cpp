#include "plant/PlantOptions.h"

#include <charconv>
#include <optional>

namespace zek::sim {
namespace {

std::optional<std::uint16_t> PortOf(const std::string& text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return port;
}

// Takes an option that has a value; false when `option` is none.
bool TakeValue(const std::string& option, const std::string& value, PlantOptions& options) {
  if (option == "--plant") {
    options.folder = value;
    return true;
  }
  if (option == "--dde") {
    options.ddeServices.push_back(value);
    return true;
  }
  if (option != "--port") return false;
  const std::optional<std::uint16_t> port = PortOf(value);
  options.port = port.value_or(0);
  if (!port) options.error = "--port: \"" + value + "\" is no number from 0 to 65535";
  return true;
}

bool TakeSwitch(const std::string& option, PlantOptions& options) {
  if (option == "--keep") return options.keep = true;
  if (option == "--verbose") return options.verbose = true;
  if (option == "--help") return options.help = true;
  return false;
}

}  // namespace

PlantOptions ReadPlantOptions(const std::vector<std::string>& arguments) {
  PlantOptions options;
  for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
    const std::string& option = arguments[i];
    if (TakeSwitch(option, options)) continue;
    const bool last = i + 1 == arguments.size();
    if (!TakeValue(option, last ? "" : arguments[i + 1], options)) {
      options.error = "unknown option \"" + option + "\"";
    } else if (last) {
      options.error = option + " needs a value";
    }
    ++i;
  }
  return options;
}

std::string PlantUsage() {
  return "Usage: zekview-sim [--port N] [--plant FOLDER] [--keep] [--verbose] [--dde NAME]\n"
         "\n"
         "Plays a communication server and its controllers on 127.0.0.1. The first line of\n"
         "standard output is the port. Ctrl+C ends it. On Windows the plant is served over DDE\n"
         "as well: service ZEK, the outstations' names as topics, item TRANSPARENT.\n"
         "\n"
         "  --port N        listen on port N; 0, the default, takes a free one\n"
         "  --plant FOLDER  the plant, one sub-folder an outstation (default: data/demo/plant)\n"
         "  --keep          write changed catalogues back into the plant folder\n"
         "  --verbose       show the traffic on standard error\n"
         "  --dde NAME      serve over DDE as NAME instead of ZEK; may be given several times\n"
         "  --help          show this text\n";
}

}  // namespace zek::sim
