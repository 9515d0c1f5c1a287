#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zek {

enum class LinkState { Closed, Opening, Connected, Closing };

/// Why a transport failed.
struct LinkFault {
  std::int32_t textNumber = 0;  // of the language text that says so; 0: only the system's words
  std::string systemMessage;    // the system's own words, UTF-8
};

/// What a transport reports. Calls come from the event loop, never from inside Open, Send or Close.
class TransportEvents {
 public:
  virtual ~TransportEvents() = default;
  virtual void OnLinkText(std::string_view bytes) = 0;
  /// The other side closed the connection, after the last text; the state is Closed.
  virtual void OnLinkClosed() = 0;
  /// Opening failed or the connection broke; the state is Closed.
  virtual void OnLinkError(const LinkFault& fault) = 0;
};

/// Where a transport leads. TCP/IP: host and port; DDE: application ("ZEK" or "\\PLANT2\NDDE$") and
/// topic (the item is always "TRANSPARENT").
struct LinkTarget {
  std::string server;
  std::string service;
};

/// Carries bytes to the communication server and back: a socket or a DDE conversation. One object
/// serves the whole session and is opened and closed again for every topic.
class Transport {
 public:
  virtual ~Transport() = default;

  /// Sets the receiver of events; call once before Open.
  void Attach(TransportEvents* events) { events_ = events; }

  /// Starts to connect. The state becomes Connected, or OnLinkError comes.
  virtual void Open(const LinkTarget& target) = 0;

  /// Sends the bytes as they are; false when not connected or when they are refused.
  virtual bool Send(std::string_view bytes) = 0;

  /// False while the other side has not confirmed all bytes that were sent, as far as the system
  /// reports it (TCP acknowledgements).
  virtual bool AllSent() const = 0;

  /// Starts to close; no event follows for a connection that this call closed.
  virtual void Close() = 0;

  virtual LinkState State() const = 0;

 protected:
  TransportEvents& Events() const { return *events_; }

 private:
  TransportEvents* events_ = nullptr;
};

}  // namespace zek
