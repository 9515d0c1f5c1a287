#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include <wx/socket.h>
#include <wx/timer.h>

#include "plant/PlantConversation.h"

namespace zek::sim {

/// One connected client: its socket, its conversation and what waits in either direction. Memory
/// stays bounded whatever the client does: nothing more is read or answered while it leaves
/// `kMostWaiting` characters of answers unread.
class ServerClient {
 public:
  static constexpr std::size_t kMostWaiting = 65536;

  /// Shows traffic.
  enum class Direction { Received, Sent };
  using Trace = std::function<void(Direction direction, std::string_view bytes)>;

  /// Owns the socket from here on.
  ServerClient(wxSocketBase* socket, Plant& plant, Trace trace);
  ~ServerClient();
  ServerClient(const ServerClient&) = delete;
  ServerClient& operator=(const ServerClient&) = delete;

  /// The socket can be read or written: moves what can be moved. False when the
  /// connection is broken.
  bool Pump();

  bool TakingLines() const { return conversation_.TakingLines(); }

 private:
  void Greet();
  void Read();
  void Converse();
  void Flush();

  // Runs once, when a client without DUS number has had its moment.
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
  std::string input_;   // read and not yet conversed about
  std::string output_;  // not yet written
  bool broken_ = false;
  GreetingTimer greeting_;
};

}  // namespace zek::sim
