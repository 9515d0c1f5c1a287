#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include <wx/socket.h>
#include <wx/timer.h>

#include "plant/PlantConversation.h"

namespace zek::sim {

/// One connected client: its socket, its conversation and the pending data in both directions.
/// Memory is bounded: while the client leaves `kMostWaiting` characters of replies unread, nothing
/// more is read or answered.
class ServerClient {
 public:
  static constexpr std::size_t kMostWaiting = 65536;

  /// Prints traffic.
  enum class Direction { Received, Sent };
  using Trace = std::function<void(Direction direction, std::string_view bytes)>;

  /// Takes ownership of the socket.
  ServerClient(wxSocketBase* socket, Plant& plant, Trace trace);
  ~ServerClient();
  ServerClient(const ServerClient&) = delete;
  ServerClient& operator=(const ServerClient&) = delete;

  /// Reads, replies and writes as far as the socket allows. Returns false if the connection is
  /// broken.
  bool Pump();

  bool TakingLines() const { return conversation_.TakingLines(); }

 private:
  void Greet();
  void Read();
  void Converse();
  void Flush();

  // Runs once, after the delay in which a client may send its DUS number.
  class GreetingTimer : public wxTimer {
   public:
    explicit GreetingTimer(ServerClient& client) : client_(client) {}
    void Notify() override { client_.Greet(); }

   private:
    ServerClient& client_;
  };

  wxSocketBase* socket_;
  PlantConversation conversation_;
  Trace trace_;
  std::string input_;   // read, not yet processed
  std::string output_;  // not yet written
  bool broken_ = false;
  GreetingTimer greeting_;
};

}  // namespace zek::sim
