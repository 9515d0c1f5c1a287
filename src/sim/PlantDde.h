#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "plant/Plant.h"
#include "plant/PlantOptions.h"

namespace zek::sim {

/// Shows on standard error what came from a client or went to it: "3 < DUS:3<13>".
void PrintTraffic(const std::string& client, bool received, std::string_view bytes);

/// Carries conversations with the plant over DDE: the topics are the outstations' names, the item
/// is "TRANSPARENT". A link on the item is greeted with "<TRANSPARENT>" and brings the answers in
/// numbered pieces; a poke of the item is a command, in which "{13}" stands for the carriage
/// return. Works inside the program's event loop.
class PlantDde {
 public:
  /// Keeps the reference; `settled` is called when no client is in the middle of a catalogue.
  PlantDde(Plant& plant, std::function<void()> settled);
  ~PlantDde();
  PlantDde(const PlantDde&) = delete;
  PlantDde& operator=(const PlantDde&) = delete;

  /// Serves under the names of the options, "ZEK" when there are none, and shows the traffic with
  /// `verbose`. "" or what is wrong; nothing is when there is no DDE and no name was given.
  std::string Serve(const PlantOptions& options);

 private:
  class Server;
  std::unique_ptr<Server> server_;
};

}  // namespace zek::sim
