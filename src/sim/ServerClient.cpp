#include "sim/ServerClient.h"

#include <array>
#include <utility>

namespace zek::sim {
namespace {

// A client with a DUS number sends "DUS:n" right after connecting, long before this delay ends. A
// client that waits for the greeting does not notice so short a delay.
constexpr int kGreetingDelay = 200;  // ms

constexpr std::size_t kReadAtOnce = 4096;

}  // namespace

ServerClient::ServerClient(wxSocketBase* socket, Plant& plant, Trace trace)
    : socket_(socket), conversation_(plant), trace_(std::move(trace)), greeting_(*this) {
  greeting_.StartOnce(kGreetingDelay);
}

ServerClient::~ServerClient() { socket_->Destroy(); }

void ServerClient::Greet() {
  output_ += conversation_.Greeting();
  Flush();
}

bool ServerClient::Pump() {
  Flush();
  if (!output_.empty()) return !broken_;  // leave further input in the socket
  // One read per event, so that a flood does not block other clients; the socket reports the rest.
  if (input_.empty()) Read();
  while (output_.empty() && !input_.empty()) {
    Converse();
    Flush();
  }
  return !broken_;
}

void ServerClient::Read() {
  std::array<char, kReadAtOnce> bytes{};
  socket_->Read(bytes.data(), bytes.size());
  input_.assign(bytes.data(), socket_->LastReadCount());
  if (!input_.empty()) trace_(Direction::Received, input_);
}

void ServerClient::Converse() {
  std::size_t used = 0;
  while (used < input_.size() && output_.size() < kMostWaiting) {
    output_ += conversation_.Receive({&input_[used++], 1});
  }
  input_.erase(0, used);
}

void ServerClient::Flush() {
  if (output_.empty()) return;
  socket_->Write(output_.data(), static_cast<wxUint32>(output_.size()));
  const std::size_t written = socket_->LastWriteCount();
  if (written == 0) {
    // The toolkit does not report a reset connection while it has unread text.
    broken_ = socket_->LastError() != wxSOCKET_WOULDBLOCK;
    return;
  }
  trace_(Direction::Sent, std::string_view(output_).substr(0, written));
  output_.erase(0, written);
}

}  // namespace zek::sim
