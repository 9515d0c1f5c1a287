#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include <wx/event.h>
#include <wx/socket.h>

#include "plant/Plant.h"
#include "plant/PlantOptions.h"
#include "sim/ServerClient.h"

namespace zek::sim {

/// Serves a plant over TCP/IP, on the loopback address only. Runs in the program's event loop.
class PlantServer : public wxEvtHandler {
 public:
  /// Further clients are disconnected at once.
  static constexpr std::size_t kMostClients = 200;

  /// Keeps the reference. Uses `port`, `folder`, `keep` and `verbose` of the options.
  PlantServer(Plant& plant, PlantOptions options);
  ~PlantServer() override;
  PlantServer(const PlantServer&) = delete;
  PlantServer& operator=(const PlantServer&) = delete;

  /// Starts to listen on the port of the options; returns false if the port is not available.
  bool Listen();

  /// Returns the port in use; call after `Listen`.
  std::uint16_t Port() const;

  /// With `keep`: saves every changed outstation. Runs after a client has finished a catalogue,
  /// after a client is lost, and at the end.
  void SaveChanges();

 private:
  void OnConnection();
  void OnClient(wxSocketEvent& event);

  Plant& plant_;
  PlantOptions options_;
  int clientsSeen_ = 0;
  std::unique_ptr<wxSocketServer> listener_;
  std::map<wxSocketBase*, std::unique_ptr<ServerClient>> clients_;
};

}  // namespace zek::sim
