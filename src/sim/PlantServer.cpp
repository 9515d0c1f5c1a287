#include "sim/PlantServer.h"

#include <iostream>
#include <utility>

#include <wx/platinfo.h>

#include "plant/PlantFolder.h"
#include "sim/PlantDde.h"

namespace zek::sim {

PlantServer::PlantServer(Plant& plant, PlantOptions options)
    : plant_(plant), options_(std::move(options)) {}

PlantServer::~PlantServer() { SaveChanges(); }

namespace {
// Allows reuse of a recently closed port. On Windows the flag would let two plants share a port.
wxSocketFlags ListenerFlags() {
  const bool windows = wxPlatformInfo::Get().GetOperatingSystemId() & wxOS_WINDOWS;
  return windows ? wxSOCKET_NOWAIT : wxSOCKET_NOWAIT | wxSOCKET_REUSEADDR;
}
}  // namespace

bool PlantServer::Listen() {
  wxIPV4address address;
  address.Hostname("127.0.0.1");
  address.Service(options_.port);
  listener_ = std::make_unique<wxSocketServer>(address, ListenerFlags());
  if (!listener_->IsOk()) return false;
  listener_->SetEventHandler(*this);
  listener_->SetNotify(wxSOCKET_CONNECTION_FLAG);
  listener_->Notify(true);
  Bind(wxEVT_SOCKET, [this](wxSocketEvent& event) {
    event.GetSocketEvent() == wxSOCKET_CONNECTION ? OnConnection() : OnClient(event);
  });
  return true;
}

std::uint16_t PlantServer::Port() const {
  wxIPV4address address;
  listener_->GetLocal(address);
  return address.Service();
}

void PlantServer::OnConnection() {
  for (wxSocketBase* socket = listener_->Accept(false); socket != nullptr;
       socket = listener_->Accept(false)) {
    if (clients_.size() >= kMostClients) {
      socket->Destroy();
      continue;
    }
    const int number = ++clientsSeen_;
    ServerClient::Trace trace = [](ServerClient::Direction, std::string_view) {};
    if (options_.verbose) {
      trace = [number](ServerClient::Direction direction, std::string_view bytes) {
        PrintTraffic(std::to_string(number), direction == ServerClient::Direction::Received, bytes);
      };
    }
    socket->SetFlags(wxSOCKET_NOWAIT);
    socket->SetEventHandler(*this);
    socket->SetNotify(wxSOCKET_INPUT_FLAG | wxSOCKET_OUTPUT_FLAG | wxSOCKET_LOST_FLAG);
    socket->Notify(true);
    clients_.emplace(socket, std::make_unique<ServerClient>(socket, plant_, std::move(trace)));
  }
}

void PlantServer::OnClient(wxSocketEvent& event) {
  const auto found = clients_.find(event.GetSocket());
  if (found == clients_.end()) return;
  ServerClient& client = *found->second;
  const bool alive = event.GetSocketEvent() != wxSOCKET_LOST && client.Pump();
  const bool taking = alive && client.TakingLines();
  if (!alive) clients_.erase(found);
  if (!taking) SaveChanges();
}

void PlantServer::SaveChanges() {
  for (Outstation& outstation : plant_.outstations) {
    if (!options_.keep || !std::exchange(outstation.changed, false)) continue;
    const std::string error = SavePlantOutstation(options_.folder, outstation);
    if (!error.empty()) std::cerr << "zekview-sim: not kept: " << error << '\n';
  }
}

}  // namespace zek::sim
