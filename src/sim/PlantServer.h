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

/// Carries the conversations with a plant over TCP/IP, on the loopback address only. Works inside
/// the program's event loop.
class PlantServer : public wxEvtHandler {
 public:
  /// Further clients are turned away at once.
  static constexpr std::size_t kMostClients = 200;

  /// Keeps the reference; takes the folder, `keep` and `verbose` from the options.
  PlantServer(Plant& plant, PlantOptions options);
  ~PlantServer() override;
  PlantServer(const PlantServer&) = delete;
  PlantServer& operator=(const PlantServer&) = delete;

  /// Starts to listen on the port of the options; false when that can't be had.
  bool Listen();

  /// The port it listens on.
  std::uint16_t Port() const;

  /// With `keep`: writes every changed outstation back. Called when a client has finished a
  /// catalogue, when one is lost, and at the end.
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
