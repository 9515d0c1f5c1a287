#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "plant/Plant.h"
#include "plant/PlantOptions.h"

namespace zek::sim {

/// Prints received or sent bytes of a client on standard error: "3 < DUS:3<13>".
void PrintTraffic(const std::string& client, bool received, std::string_view bytes);

/// Serves the plant over DDE. Topics are the outstations' names, the item is "TRANSPARENT". An
/// advise link on the item delivers "<TRANSPARENT>" and then the replies in numbered pieces. A poke
/// of the item is a command, in which "{13}" means a carriage return. Runs in the program's event
/// loop.
class PlantDde {
 public:
  /// Keeps the reference. Calls `settled` after a disconnect and after each command outside a
  /// catalogue.
  PlantDde(Plant& plant, std::function<void()> settled);
  ~PlantDde();
  PlantDde(const PlantDde&) = delete;
  PlantDde& operator=(const PlantDde&) = delete;

  /// Serves under the service names of the options, or under "ZEK" without any; `verbose` prints
  /// the traffic. Returns "" or the error. Failure without a given name is not an error.
  std::string Serve(const PlantOptions& options);

 private:
  class Server;
  std::unique_ptr<Server> server_;
};

}  // namespace zek::sim
