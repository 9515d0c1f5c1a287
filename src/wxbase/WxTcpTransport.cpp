#include "wxbase/WxTcpTransport.h"

#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "comm/SocketState.h"
#include "lang/TextNumbers.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::size_t kReadSize = std::size_t{64} << 10;
// Bytes per event: the limit lets the window handle its events during a flood.
constexpr std::size_t kReadPerEvent = std::size_t{1} << 20;
constexpr std::size_t kMostUnsent = std::size_t{1} << 20;

}  // namespace

WxTcpTransport::WxTcpTransport(HostLookup::Resolve resolve)
    : lookup_(std::move(resolve), [this](const std::function<void()>& call) { CallAfter(call); }) {
  Bind(wxEVT_SOCKET, &WxTcpTransport::OnSocket, this);
}

WxTcpTransport::~WxTcpTransport() { Drop(); }

void WxTcpTransport::Drop() {
  ++serial_;
  state_ = LinkState::Closed;
  lookup_.Cancel();
  unsent_.clear();
  if (socket_ == nullptr) return;
  socket_->Notify(false);
  socket_->Close();
  // Destroy the socket only after the events that it has already posted: otherwise a new socket at
  // the same address could receive them. The toolkit's Destroy() waits until the program is idle,
  // which may not happen during thousands of transfers.
  CallAfter([dropped = std::move(socket_)] {});
}

void WxTcpTransport::Close() { Drop(); }

void WxTcpTransport::Open(const LinkTarget& target) {
  Drop();
  state_ = LinkState::Opening;
  const double port = Val(target.service);
  wxIPV4address address;
  if (!IsNumeric(target.service) || port < 1 || port > 65535 ||
      !address.Service(static_cast<unsigned short>(port))) {
    FailLater(text::kPortInvalid);
    return;
  }
  if (target.server.empty()) {  // an empty name would mean this computer
    FailLater(text::kHostUnknown);
    return;
  }
  if (const auto known = NumericAddress(target.server)) {
    Connect(address, *known);
    return;
  }
  const bool begun =
      lookup_.Begin(target.server, [this, address](const std::optional<std::string>& found) {
        if (found) {
          Connect(address, *found);
        } else {
          FailLater(text::kHostUnknown);
        }
      });
  if (!begun) FailLater(text::kLookupsBlock);
}

// `host` is a numeric address, for which the toolkit makes no blocking lookup.
void WxTcpTransport::Connect(wxIPV4address address, const std::string& host) {
  address.Hostname(wxString::FromUTF8(host.c_str()));
  socket_ = std::make_shared<wxSocketClient>(wxSOCKET_NOWAIT);
  socket_->SetEventHandler(*this);
  socket_->SetNotify(wxSOCKET_CONNECTION_FLAG | wxSOCKET_INPUT_FLAG | wxSOCKET_OUTPUT_FLAG |
                     wxSOCKET_LOST_FLAG);
  socket_->Notify(true);
  // A refusal comes as an event. Other failures do not: there may be no sockets at all.
  if (!socket_->Connect(address, false) && socket_->LastError() != wxSOCKET_WOULDBLOCK)
    FailLater(text::kUnreachable);
}

// Errors are never reported from inside Open.
void WxTcpTransport::FailLater(std::int32_t textNumber) {
  CallAfter([this, textNumber, serial = serial_] {
    if (serial != serial_) return;
    Drop();
    Events().OnLinkError({textNumber, {}});
  });
}

bool WxTcpTransport::Send(std::string_view bytes) {
  if (state_ != LinkState::Connected || unsent_.size() + bytes.size() > kMostUnsent) return false;
  unsent_ += bytes;
  FlushUnsent();
  return state_ == LinkState::Connected;
}

bool WxTcpTransport::AllSent() const {
  if (socket_ == nullptr || !unsent_.empty()) return false;
  return IsAllAcknowledged(socket_->GetSocket());
}

void WxTcpTransport::FlushUnsent() {
  while (!unsent_.empty()) {
    socket_->Write(unsent_.data(), static_cast<wxUint32>(unsent_.size()));
    const std::size_t written = socket_->LastWriteCount();
    if (written == 0) {
      // wxSOCKET_OUTPUT reports new room; no other event reports a broken connection.
      if (socket_->LastError() != wxSOCKET_WOULDBLOCK) FailLater(text::kConnectionBroken);
      return;
    }
    unsent_.erase(0, written);
  }
}

void WxTcpTransport::OnSocket(wxSocketEvent& event) {
  if (socket_ == nullptr || event.GetSocket() != socket_.get()) return;
  switch (event.GetSocketEvent()) {
    case wxSOCKET_CONNECTION:
      state_ = LinkState::Connected;
      OnInput();
      break;
    case wxSOCKET_INPUT:
      // A fast server's greeting can arrive before the event wxSOCKET_CONNECTION, which then reads
      // it. A read before that would find nothing and cause the same event again, endlessly.
      if (state_ == LinkState::Connected) OnInput();
      break;
    case wxSOCKET_OUTPUT:
      FlushUnsent();
      break;
    case wxSOCKET_LOST:
      OnLost();
      break;
  }
}

void WxTcpTransport::OnInput() {
  std::vector<char> bytes(kReadSize);
  const unsigned serial = serial_;
  for (std::size_t total = 0; total < kReadPerEvent && serial == serial_;) {
    socket_->Read(bytes.data(), static_cast<wxUint32>(bytes.size()));
    const std::size_t count = socket_->LastReadCount();
    if (count == 0) return;
    total += count;
    Events().OnLinkText({bytes.data(), count});
    if (count < bytes.size()) return;
  }
}

void WxTcpTransport::OnLost() {
  const bool opening = state_ == LinkState::Opening;
  const unsigned serial = serial_;
  const int code = PendingSocketError(socket_->GetSocket());
  if (!opening) OnInput();  // process text received before the end
  if (serial != serial_) return;
  Drop();
  if (!opening && code == 0) {
    Events().OnLinkClosed();
    return;
  }
  // The toolkit does not report why a connect failed.
  Events().OnLinkError({code == 0 ? text::kUnreachable : 0, SocketErrorText(code)});
}

}  // namespace zek
