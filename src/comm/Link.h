#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zek {

enum class LinkState { Closed, Opening, Connected, Closing };

/// Why a link failed.
struct LinkFault {
  std::int32_t textNumber = 0;  // of the language text that says so; 0: only the system's words
  std::string systemMessage;    // the system's own words, UTF-8
};

/// What a link reports. Calls come from the event loop, never from inside Open, Send or Close.
class LinkEvents {
 public:
  virtual ~LinkEvents() = default;
  virtual void OnLinkText(std::string_view bytes) = 0;
  /// The other side closed the link, after the last text; the state is Closed.
  virtual void OnLinkClosed() = 0;
  /// Opening failed or the link broke; the state is Closed.
  virtual void OnLinkError(const LinkFault& fault) = 0;
};

/// Where a link leads. TCP/IP: host and port; DDE: application ("ZEK" or "\\PLANT2\NDDE$") and
/// topic (the item is always "TRANSPARENT").
struct LinkTarget {
  std::string server;
  std::string service;
};

/// A connection to the communication server: a socket or a DDE link. One object serves the whole
/// session and is opened and closed again for every topic.
class Link {
 public:
  virtual ~Link() = default;

  /// Who is told; set once at start-up, before the first Open.
  void Attach(LinkEvents* events) { events_ = events; }

  /// Starts to connect. The state becomes Connected, or OnLinkError comes.
  virtual void Open(const LinkTarget& target) = 0;

  /// Hands over the bytes as they stand; false when the link is not connected or refuses them.
  virtual bool Send(std::string_view bytes) = 0;

  /// False while the other side has not confirmed all bytes that were handed over, as far as the
  /// system tells (TCP acknowledgements).
  virtual bool AllSent() const = 0;

  /// Starts to close; nothing is reported for a link that was closed by this call.
  virtual void Close() = 0;

  virtual LinkState State() const = 0;

 protected:
  LinkEvents& Events() const { return *events_; }

 private:
  LinkEvents* events_ = nullptr;
};

}  // namespace zek
