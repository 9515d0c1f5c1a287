#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zek {

enum class LinkState { Closed, Opening, Connected, Closing };

/// Why a transport failed.
struct LinkFault {
  std::int32_t textNumber = 0;  // number of the language text; 0: show `systemMessage`
  std::string systemMessage;    // the system's message, UTF-8
};

/// Events of a transport. They come from the event loop, never from inside Open, Send or Close.
class TransportEvents {
 public:
  virtual ~TransportEvents() = default;
  virtual void OnLinkText(std::string_view bytes) = 0;
  /// The other side closed the connection; comes after the last text. The state is Closed.
  virtual void OnLinkClosed() = 0;
  /// Opening failed or the connection broke; the state is Closed.
  virtual void OnLinkError(const LinkFault& fault) = 0;
};

/// Destination of a transport. TCP/IP: host and port. DDE: application ("ZEK" or "\\PLANT2\NDDE$")
/// and topic; the item is always "TRANSPARENT".
struct LinkTarget {
  std::string server;
  std::string service;
};

/// Carries bytes to and from the communication server: a socket or a DDE conversation. One object
/// serves the whole session and is opened and closed for each topic.
class Transport {
 public:
  virtual ~Transport() = default;

  /// Sets the receiver of events; call once before Open.
  void Attach(TransportEvents* events) { events_ = events; }

  /// Starts to connect; closes an open connection first. Later the state becomes Connected, or
  /// OnLinkError reports a failure.
  virtual void Open(const LinkTarget& target) = 0;

  /// Sends the bytes unchanged; returns false if not connected or refused.
  virtual bool Send(std::string_view bytes) = 0;

  /// True once the other side has confirmed all sent bytes, as far as the system reports it (TCP
  /// acknowledgements).
  virtual bool AllSent() const = 0;

  /// Starts to close. No event of that connection follows.
  virtual void Close() = 0;

  virtual LinkState State() const = 0;

 protected:
  TransportEvents& Events() const { return *events_; }

 private:
  TransportEvents* events_ = nullptr;
};

}  // namespace zek
